// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

#include <QByteArray>

#include <cstdint>
#include <functional>
#include <memory>

class QSocketNotifier;
struct xcb_connection_t;

namespace Tarvik {

/// A connection to an X server which, when that has crashed, is made anew with the one that takes its place. It looks
/// for that one at growing intervals, for about a minute.
class X11Connection {
public:
    /// `display` as in DISPLAY. Nothing when it cannot be reached. `clock` must outlive the object.
    static std::unique_ptr<X11Connection> open(const QByteArray& display, Clock& clock);
    ~X11Connection();

    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    /// Whether `display` is on this machine. One that ssh forwards comes and goes with the network, and may keep
    /// whoever connects to it waiting.
    static bool isOnThisMachine(const QByteArray& display);

    /// Null while there is no server.
    xcb_connection_t* get() const { return m_connection.get(); }
    /// The root window of the display's screen.
    std::uint32_t root() const { return m_root; }

    /// To be called when reading has shown that the server has gone.
    void lose();

    /// There may be something to read. Both must be set.
    std::function<void()> onReadable;
    /// There is a server again, which knows nothing of what was asked of the last one.
    std::function<void()> onBack;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const;
    };

    X11Connection(const QByteArray& display, Clock& clock);

    bool connect();
    void look();
    void lookLater();

    QByteArray m_display;
    Clock& m_clock;
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    std::uint32_t m_root = 0;
    /// Goes before the connection, which closes its descriptor.
    std::unique_ptr<QSocketNotifier> m_notifier;
    /// How long the next look is away.
    Seconds m_interval{0};
    std::unique_ptr<Timer> m_nextLook;
};

} // namespace Tarvik
