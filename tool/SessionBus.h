// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "BusAddress.h"
#include "DBusMessage.h"
#include "Deadline.h"

#include "base/FileDescriptor.h"

#include <optional>
#include <string>
#include <vector>

namespace Tarvik {

/// One private connection to a session bus, for one exchange and what the bus sends after it.
///
/// Everything is sent at once, without waiting for the bus at each step of the handshake, and the answer to the last
/// message proves that the bus has dealt with all of them: what is still in its socket when a sender goes may be lost.
class SessionBus final {
public:
    /// Connects; nothing listens, or what does belongs to somebody else: not connected.
    SessionBus(const BusAddress& address, uid_t user, Deadline deadline);

    /// Until the bus has gone, or has sent what cannot be read.
    bool isConnected() const { return m_socket.isValid(); }

    /// For poll(2): readable when there is something to read for nextMessage(), or the connection has ended.
    int descriptor() const { return m_socket.get(); }

    /// Logs in, sends the messages, and answers the reply to the last of them. Nothing when
    /// the bus refused, went away, or did not answer in time; what was sent may have arrived then.
    std::optional<DBusMessage> exchange(const std::vector<DBusMessage>& messages, Deadline deadline);

    /// What comes next after an exchange; nothing when nothing does in time, or the connection ends.
    std::optional<DBusMessage> nextMessage(Deadline deadline);

private:
    bool send(std::string_view bytes, Deadline deadline);
    /// Appends what has arrived to `m_received`; false at the end, or when time is up.
    bool receive(Deadline deadline);
    bool awaitPermission(Deadline deadline);

    FileDescriptor m_socket;
    std::string m_received;
};

} // namespace Tarvik
