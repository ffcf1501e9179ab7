// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/session/DisplayConnection.h"

#include <QByteArray>
#include <QSocketNotifier>

#include <memory>

struct xcb_connection_t;

namespace Tarvik {

/// To an X server on this machine.
class X11DisplayConnection final : public DisplayConnection {
public:
    /// `display` as in DISPLAY. Nothing when it names a server elsewhere, or cannot be reached.
    static std::unique_ptr<X11DisplayConnection> open(const QByteArray& display);
    ~X11DisplayConnection() override;

    X11DisplayConnection(const X11DisplayConnection&) = delete;
    X11DisplayConnection& operator=(const X11DisplayConnection&) = delete;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const;
    };

    explicit X11DisplayConnection(std::unique_ptr<xcb_connection_t, Disconnect> connection);

    void receive();

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    QSocketNotifier m_notifier;
};

} // namespace Tarvik
