// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/assertions/X11ScreenSaverInhibitor.h"

#include "platform/linux/x11/X11Connection.h"

#include <cerrno>
#include <utility>

namespace Tarvik {

namespace {

constexpr Seconds period{25};

} // namespace

X11ScreenSaverInhibitor::X11ScreenSaverInhibitor(std::shared_ptr<X11Connection> connection, Clock& clock)
    : m_connection(std::move(connection))
    , m_arrivals(m_connection->connected.subscribe([this] { reset(); }))
    , m_timer(clock.every(period, [this] { reset(); }))
{
    reset();
}

Inhibitor::State X11ScreenSaverInhibitor::state() const
{
    if (m_connection->get() != nullptr)
        return State::effective;
    return m_connection->isKnown() ? State::refused : State::pending;
}

int X11ScreenSaverInhibitor::error() const
{
    return state() == State::refused ? ECONNREFUSED : 0;
}

void X11ScreenSaverInhibitor::reset()
{
    if (m_connection->get() == nullptr)
        return;
    xcb_force_screen_saver(m_connection->get(), XCB_SCREEN_SAVER_RESET);
    m_connection->send();
}

} // namespace Tarvik
