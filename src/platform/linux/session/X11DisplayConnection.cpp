// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/session/X11DisplayConnection.h"

#include "platform/linux/x11/X11Connection.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <utility>

namespace Tarvik {

void X11DisplayConnection::Disconnect::operator()(xcb_connection_t* connection) const
{
    xcb_disconnect(connection);
}

std::unique_ptr<X11DisplayConnection> X11DisplayConnection::open(const QByteArray& display)
{
    // What comes and goes with the network does not come and go with a login.
    if (!X11Connection::isOnThisMachine(display))
        return nullptr;
    std::unique_ptr<xcb_connection_t, Disconnect> connection(xcb_connect(display.constData(), nullptr));
    if (xcb_connection_has_error(connection.get()) != 0)
        return nullptr;
    return std::unique_ptr<X11DisplayConnection>(new X11DisplayConnection(std::move(connection)));
}

X11DisplayConnection::X11DisplayConnection(std::unique_ptr<xcb_connection_t, Disconnect> connection)
    : m_connection(std::move(connection))
    , m_notifier(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read)
{
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { receive(); });
}

X11DisplayConnection::~X11DisplayConnection()
{
    // Before the connection closes its descriptor.
    m_notifier.setEnabled(false);
}

void X11DisplayConnection::receive()
{
    // The server tells every client when the keyboard changes.
    while (void* event = xcb_poll_for_event(m_connection.get()))
        std::free(event);
    if (xcb_connection_has_error(m_connection.get()) == 0)
        return;
    m_notifier.setEnabled(false);
    onLost();
}

} // namespace Tarvik
