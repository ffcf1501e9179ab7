// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/FileDescriptor.h"

#include <QByteArray>
#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <vector>

namespace Tarvik {

/// A netlink(7) socket that hands on what the kernel, and nobody else, sends.
class NetlinkSocket {
public:
    /// `lost`: the kernel had more to say than there was room for.
    using Receiver = std::function<void(const std::vector<QByteArray>& datagrams, bool lost)>;

    /// `groups` is the bit mask of multicast groups to join. `receiver` is called from the event loop, once for all
    /// that has arrived together; never when there is no such socket to be had.
    NetlinkSocket(int protocol, unsigned groups, Receiver receiver);
    NetlinkSocket(const NetlinkSocket&) = delete;
    NetlinkSocket& operator=(const NetlinkSocket&) = delete;

    bool isOpen() const { return m_notifier != nullptr; }
    void send(const QByteArray& request) const;
    void join(unsigned group) const;

private:
    void receive();

    FileDescriptor m_descriptor;
    Receiver m_receiver;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace Tarvik
