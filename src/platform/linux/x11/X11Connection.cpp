// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Connection.h"

#include <QSocketNotifier>

#include <xcb/xcb.h>

#include <utility>

namespace Tarvik {

namespace {

constexpr Seconds firstInterval{1};
constexpr Seconds lastInterval{32};

} // namespace

void X11Connection::Disconnect::operator()(xcb_connection_t* connection) const
{
    xcb_disconnect(connection);
}

std::unique_ptr<X11Connection> X11Connection::open(const QByteArray& display, Clock& clock)
{
    std::unique_ptr<X11Connection> connection(new X11Connection(display, clock));
    return connection->connect() ? std::move(connection) : nullptr;
}

X11Connection::X11Connection(const QByteArray& display, Clock& clock)
    : m_display(display)
    , m_clock(clock)
{
}

X11Connection::~X11Connection() = default;

bool X11Connection::isOnThisMachine(const QByteArray& display)
{
    return display.startsWith(':') || display.startsWith("unix:") || display.startsWith('/');
}

bool X11Connection::connect()
{
    int screenNumber = 0;
    std::unique_ptr<xcb_connection_t, Disconnect> connection(xcb_connect(m_display.constData(), &screenNumber));
    if (xcb_connection_has_error(connection.get()) != 0)
        return false;
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(connection.get()));
    for (; screenNumber > 0 && screen.rem > 1; --screenNumber)
        xcb_screen_next(&screen);
    if (screen.rem == 0)
        return false;
    m_root = screen.data->root;
    m_connection = std::move(connection);
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { onReadable(); });
    return true;
}

void X11Connection::lose()
{
    // This may be the notifier's own call.
    m_notifier->setEnabled(false);
    m_notifier.release()->deleteLater();
    m_connection.reset();
    m_interval = firstInterval;
    if (isOnThisMachine(m_display))
        lookLater();
}

void X11Connection::look()
{
    if (connect())
        onBack();
    else if (m_interval <= lastInterval)
        lookLater();
}

void X11Connection::lookLater()
{
    m_nextLook = m_clock.after(std::exchange(m_interval, 2 * m_interval), [this] { look(); });
}

} // namespace Tarvik
