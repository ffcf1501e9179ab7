// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/session/DisplaySessionLifetime.h"

#include "core/Logging.h"
#include "platform/linux/session/WaylandDisplayConnection.h"
#include "platform/linux/x11/X11Connection.h"

#include <utility>

namespace Tarvik {

namespace {

/// KDE starts a compositor that has crashed again behind the same socket. One that shuts down may close its connections
/// before its socket.
constexpr Seconds restartTime{1};

/// logind may hear of a logout after the display has gone, but not by much.
constexpr Seconds firstInterval{1};
constexpr Seconds lastInterval{32};

} // namespace

DisplaySessionLifetime::DisplaySessionLifetime(const Display& display, const QDBusConnection& systemBus, Clock& clock)
    : m_display(display)
    , m_clock(clock)
    , m_login(systemBus)
{
    // Where there is a compositor, the X server is only a guest in the session.
    if (!m_display.waylandSocket.isEmpty() && followCompositor())
        return;
    m_display.waylandSocket.clear();
    // What comes and goes with the network does not come and go with a login.
    if (m_display.x11 != nullptr && m_display.x11->isOnThisMachine())
        followXServer();
}

DisplaySessionLifetime::~DisplaySessionLifetime() = default;

bool DisplaySessionLifetime::follow()
{
    return m_display.waylandSocket.isEmpty() ? m_hasXServer : followCompositor();
}

bool DisplaySessionLifetime::followCompositor()
{
    m_compositor = WaylandDisplayConnection::open(m_display.waylandSocket);
    if (m_compositor == nullptr)
        return false;
    m_compositor->onLost = [this] {
        m_nextLook = m_clock.after(restartTime, [this] {
            if (!follow())
                becomeLost();
        });
    };
    return true;
}

void DisplaySessionLifetime::followXServer()
{
    m_hasXServer = m_display.x11->get() != nullptr;
    m_arrivals = m_display.x11->connected.subscribe([this] { m_hasXServer = true; });
    m_losses = m_display.x11->lost.subscribe([this] {
        // One that was never there ends no session.
        if (std::exchange(m_hasXServer, false))
            becomeLost();
    });
}

void DisplaySessionLifetime::becomeLost()
{
    m_interval = firstInterval;
    askWhetherOver();
}

void DisplaySessionLifetime::askWhetherOver()
{
    m_login.askWhetherOver([this](bool isOver) { take(isOver); });
}

void DisplaySessionLifetime::take(bool isOver)
{
    if (isOver) {
        qCInfo(logSystem, "the session has ended with its display");
        ended();
        return;
    }
    // A server that takes us in only to throw us out again gets a pause, too.
    if (m_interval == firstInterval)
        qCInfo(logSystem, "the display has gone, but not the session: going on without it");
    else if (follow())
        return;
    if (m_interval > lastInterval)
        return;
    m_nextLook = m_clock.after(m_interval, [this] { askWhetherOver(); });
    m_interval *= 2;
}

} // namespace Tarvik
