// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/SessionLifetime.h"
#include "platform/linux/session/LogindSession.h"

#include <QString>

#include <memory>

namespace Tarvik {

class WaylandDisplayConnection;
class X11Connection;

/// A graphical session, which lasts until its display server has gone and logind says that the user has logged out: a
/// display that crashed ends nothing. Programs without a window are not ended at logout by anybody else: logind leaves
/// them alone, and so does the user's systemd as long as one of them runs. A session without a display never ends.
class DisplaySessionLifetime final : public SessionLifetime {
public:
    struct Display {
        /// Null without an X server.
        std::shared_ptr<X11Connection> x11;
        /// Absolute path of the Wayland compositor's socket; empty without one.
        QString waylandSocket;
    };

    /// `systemBus` is the connection to the system bus; `clock` must outlive the object.
    DisplaySessionLifetime(const Display& display, const QDBusConnection& systemBus, Clock& clock);
    ~DisplaySessionLifetime() override;
    DisplaySessionLifetime(const DisplaySessionLifetime&) = delete;
    DisplaySessionLifetime& operator=(const DisplaySessionLifetime&) = delete;

private:
    bool follow();
    bool followCompositor();
    void followXServer();
    void becomeLost();
    void askWhetherOver();
    void take(bool isOver);

    Display m_display;
    Clock& m_clock;
    std::unique_ptr<WaylandDisplayConnection> m_compositor;
    bool m_hasXServer = false;
    Subscription m_arrivals;
    Subscription m_losses;
    LogindSession m_login;
    /// How long after this look the next one comes.
    Seconds m_interval{0};
    std::unique_ptr<Timer> m_nextLook;
};

} // namespace Tarvik
