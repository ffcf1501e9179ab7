// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/session/DisplaySessionLifetime.h"

#include "core/Logging.h"
#include "platform/linux/session/WaylandDisplayConnection.h"
#include "platform/linux/session/X11DisplayConnection.h"

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
    if (!m_display.waylandSocket.isEmpty() && follow())
        return;
    m_display.waylandSocket.clear();
    follow();
}

bool DisplaySessionLifetime::follow()
{
    return m_display.waylandSocket.isEmpty() ? followXServer() : followCompositor();
}

bool DisplaySessionLifetime::followCompositor()
{
    m_connection = WaylandDisplayConnection::open(m_display.waylandSocket);
    if (m_connection == nullptr)
        return false;
    m_connection->onLost = [this] {
        m_nextLook = m_clock.after(restartTime, [this] {
            if (!follow())
                becomeLost();
        });
    };
    return true;
}

bool DisplaySessionLifetime::followXServer()
{
    m_connection = X11DisplayConnection::open(m_display.x11);
    if (m_connection == nullptr)
        return false;
    m_connection->onLost = [this] { becomeLost(); };
    return true;
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
