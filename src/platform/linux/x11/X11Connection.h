// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Releaser.h"
#include "base/Signal.h"
#include "platform/Clock.h"

#include <QByteArray>
#include <QObject>

#include <xcb/xcb.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace Tarvik {

/// The connection to an X server that all who need one share. When the server has crashed, it is made anew with the one
/// that takes its place, which is looked for at growing intervals, for about a minute. Whoever is told something must
/// not be the last to let go of it.
class X11Connection final {
public:
    /// Takes a reply, which is null where the server answered with an error.
    using ReplyReceiver = std::function<void(const void* reply)>;

    /// Connects as soon as the event loop runs. `display` as in DISPLAY; one that cannot be reached then is not looked
    /// for. `clock` must outlive the object.
    static std::shared_ptr<X11Connection> open(const QByteArray& display, Clock& clock);
    /// Waits, for a second at most, until the server has read what was asked of it: from who disconnects before that
    /// some do not.
    ~X11Connection();

    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    /// Whether the display is on this machine. One that ssh forwards comes and goes with the network, and may keep
    /// whoever connects to it waiting.
    bool isOnThisMachine() const;

    /// It has been tried whether there is a server.
    bool isKnown() const { return m_isKnown; }
    /// Null while there is no server. Events and replies are read by this object alone.
    xcb_connection_t* get() const { return m_connection.get(); }
    /// The root window of the display's screen.
    std::uint32_t root() const { return m_root; }

    /// Hands `receiver` the reply to the request that was made last, by its sequence number. Drop the subscription to
    /// lose interest. There is no reply when the server goes.
    Subscription await(unsigned int sequence, ReplyReceiver receiver);

    /// Sends, soon, the requests that have been made. Those that a receiver makes are sent in any case.
    void send();

    /// There is a server, which knows nothing of what was asked of the last one.
    Signal<void()> connected;
    /// There is no server, or none any more.
    Signal<void()> lost;
    /// An event for any of those who share the connection, or the error of a request that has no reply. What the server
    /// sent before a reply is told before it.
    Signal<void(const xcb_generic_event_t& event)> received;
    /// Everything that the server has sent so far has been handed out.
    Signal<void()> settled;

private:
    struct Request {
        unsigned int sequence;
        std::weak_ptr<const ReplyReceiver> receiver;
    };

    X11Connection(const QByteArray& display, Clock& clock);

    bool connect();
    void begin();
    void process();
    bool takeReply();
    bool takeEvent();
    void lose();
    void look();
    void lookLater();
    void awaitServer();

    QByteArray m_display;
    Clock& m_clock;
    bool m_isKnown = false;
    Owned<xcb_connection_t, xcb_disconnect> m_connection;
    std::uint32_t m_root = 0;
    /// Goes before the connection, which closes its descriptor.
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::deque<Request> m_requests;
    bool m_isProcessingScheduled = false;
    /// How long the next look is away.
    Seconds m_interval{0};
    std::unique_ptr<Timer> m_nextLook;
    QObject m_eventLoop;
};

} // namespace Tarvik
