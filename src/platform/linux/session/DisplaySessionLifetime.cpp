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

} // namespace

DisplaySessionLifetime::DisplaySessionLifetime(const Display& display, Clock& clock)
    : m_clock(clock)
{
    // Where there is a compositor, the X server is only a guest in the session.
    if (!display.waylandSocket.isEmpty())
        followCompositor(display.waylandSocket);
    if (m_connection == nullptr && (m_connection = X11DisplayConnection::open(display.x11)) != nullptr)
        m_connection->onLost = [this] { end(); };
}

void DisplaySessionLifetime::followCompositor(const QString& socket)
{
    m_connection = WaylandDisplayConnection::open(socket);
    if (m_connection == nullptr)
        return;
    m_connection->onLost = [this, socket] {
        m_secondLook = m_clock.after(restartTime, [this, socket] {
            followCompositor(socket);
            if (m_connection == nullptr)
                end();
        });
    };
}

void DisplaySessionLifetime::end()
{
    qCInfo(logSystem, "the display has gone, and with it the session");
    if (onEnd)
        onEnd();
}

} // namespace Tarvik
