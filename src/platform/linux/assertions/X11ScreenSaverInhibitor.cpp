// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/assertions/X11ScreenSaverInhibitor.h"

#include "platform/linux/x11/X11Connection.h"

#include <xcb/xcb.h>

#include <cerrno>
#include <cstdlib>

namespace Tarvik {

namespace {

constexpr Seconds period{25};

} // namespace

void X11ScreenSaverInhibitor::Disconnect::operator()(xcb_connection_t* connection) const
{
    xcb_disconnect(connection);
}

X11ScreenSaverInhibitor::X11ScreenSaverInhibitor(const QByteArray& display, Clock& clock)
    : m_display(display)
    , m_timer(clock.every(period, [this] { reset(); }))
{
    connect();
    reset();
}

X11ScreenSaverInhibitor::~X11ScreenSaverInhibitor() = default;

Inhibitor::State X11ScreenSaverInhibitor::state() const
{
    return error() == 0 ? State::effective : State::refused;
}

int X11ScreenSaverInhibitor::error() const
{
    return xcb_connection_has_error(m_connection.get()) == 0 ? 0 : ECONNREFUSED;
}

void X11ScreenSaverInhibitor::connect()
{
    m_connection.reset(xcb_connect(m_display.constData(), nullptr));
}

void X11ScreenSaverInhibitor::reset()
{
    if (error() != 0 && X11Connection::isOnThisMachine(m_display))
        connect();
    xcb_force_screen_saver(m_connection.get(), XCB_SCREEN_SAVER_RESET);
    xcb_flush(m_connection.get());
    // Changes of the keyboard, of which the server tells every client.
    while (void* event = xcb_poll_for_event(m_connection.get()))
        std::free(event);
}

} // namespace Tarvik
