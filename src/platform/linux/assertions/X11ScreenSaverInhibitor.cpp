// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/assertions/X11ScreenSaverInhibitor.h"

#include "platform/linux/x11/X11Connection.h"

#include <xcb/screensaver.h>

#include <cerrno>
#include <string_view>
#include <utility>

namespace Tarvik {

namespace {

constexpr Seconds period{25};

} // namespace

X11ScreenSaverInhibitor::X11ScreenSaverInhibitor(std::shared_ptr<X11Connection> connection, Clock& clock)
    : m_connection(std::move(connection))
    , m_arrivals(m_connection->connected.subscribe([this] { begin(); }))
    , m_losses(m_connection->lost.subscribe([this] { m_isSuspending = false; }))
    , m_timer(clock.every(period, [this] { reset(); }))
{
    begin();
}

X11ScreenSaverInhibitor::~X11ScreenSaverInhibitor()
{
    if (!m_isSuspending)
        return;
    xcb_screensaver_suspend(m_connection->get(), 0);
    m_connection->send();
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

void X11ScreenSaverInhibitor::begin()
{
    reset();
    xcb_connection_t* server = m_connection->get();
    if (server == nullptr)
        return;
    // Every request of the extension would else wait for this.
    xcb_prefetch_extension_data(server, &xcb_screensaver_id);
    constexpr std::string_view name = "MIT-SCREEN-SAVER";
    const auto query = xcb_query_extension(server, static_cast<std::uint16_t>(name.size()), name.data());
    m_answer = m_connection->await(query.sequence, [this](const void* reply) {
        const auto* extension = static_cast<const xcb_query_extension_reply_t*>(reply);
        if (extension != nullptr && extension->present != 0)
            suspend();
    });
}

void X11ScreenSaverInhibitor::suspend()
{
    xcb_screensaver_suspend(m_connection->get(), 1);
    m_connection->send();
    m_isSuspending = true;
}

void X11ScreenSaverInhibitor::reset()
{
    if (m_connection->get() == nullptr)
        return;
    xcb_force_screen_saver(m_connection->get(), XCB_SCREEN_SAVER_RESET);
    m_connection->send();
}

} // namespace Tarvik
