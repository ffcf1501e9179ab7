// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/FileDescriptor.h"

#include <QSocketNotifier>
#include <QString>

#include <functional>
#include <memory>

namespace Tarvik {

/// To a Wayland compositor. The compositor speaks only when spoken to, so this needs nothing of the protocol.
class WaylandDisplayConnection final {
public:
    /// `socket` is the absolute path of the compositor's socket. Nothing when nobody listens there.
    static std::unique_ptr<WaylandDisplayConnection> open(const QString& socket);
    WaylandDisplayConnection(const WaylandDisplayConnection&) = delete;
    WaylandDisplayConnection& operator=(const WaylandDisplayConnection&) = delete;

    /// The compositor has closed the connection; called once. Must not destroy the connection.
    std::function<void()> onLost;

private:
    explicit WaylandDisplayConnection(FileDescriptor socket);

    void receive();

    FileDescriptor m_socket;
    QSocketNotifier m_notifier;
};

} // namespace Tarvik
