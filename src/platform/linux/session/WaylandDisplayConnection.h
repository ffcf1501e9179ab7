// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/FileDescriptor.h"
#include "platform/linux/session/DisplayConnection.h"

#include <QSocketNotifier>
#include <QString>

#include <memory>

namespace Tarvik {

/// To a Wayland compositor. The compositor speaks only when spoken to, so this needs nothing of the protocol.
class WaylandDisplayConnection final : public DisplayConnection {
public:
    /// `socket` is the absolute path of the compositor's socket. Nothing when nobody listens there.
    static std::unique_ptr<WaylandDisplayConnection> open(const QString& socket);

private:
    explicit WaylandDisplayConnection(FileDescriptor socket);

    void receive();

    FileDescriptor m_socket;
    QSocketNotifier m_notifier;
};

} // namespace Tarvik
