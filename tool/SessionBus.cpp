// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "SessionBus.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>

namespace Tarvik {

using namespace std::string_view_literals;

// The empty answers leave it to the bus to take our identity from the socket: inside a user namespace it knows us under
// another number than we do.
static constexpr auto handshake = "\0AUTH EXTERNAL\r\nDATA\r\nBEGIN\r\n"sv;

static bool belongsTo(const std::string& path, uid_t user)
{
    struct stat status { };
    return stat(path.c_str(), &status) == 0 && S_ISSOCK(status.st_mode) && status.st_uid == user;
}

static bool connectTo(int socket, const BusAddress& address, Deadline deadline)
{
    sockaddr_un target{};
    target.sun_family = AF_UNIX;
    // Paths end with a zero, abstract names begin with one.
    if (address.name.size() > sizeof(target.sun_path) - 1)
        return false;
    const bool isAbstract = address.kind == BusAddress::Kind::abstract;
    std::memcpy(target.sun_path + (isAbstract ? 1 : 0), address.name.data(), address.name.size());
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + address.name.size());

    // Connecting waits while the queue of a busy bus is full, up to the time that sending may take.
    const auto left = std::max(deadline.remaining(), std::chrono::milliseconds(1));
    timeval timeout{};
    timeout.tv_sec = left.count() / 1000;
    timeout.tv_usec = left.count() % 1000 * 1000;
    setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &timeout, sizeof(timeout));
    int result = 0;
    do {
        result = connect(socket, reinterpret_cast<const sockaddr*>(&target), length);
    } while (result != 0 && errno == EINTR && !deadline.hasPassed());
    return result == 0;
}

SessionBus::SessionBus(const BusAddress& address, uid_t user, Deadline deadline)
{
    if (address.mustBelongToUser && !belongsTo(address.name, user))
        return;
    FileDescriptor descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (descriptor.isValid() && connectTo(descriptor.get(), address, deadline))
        m_socket = std::move(descriptor);
}

static bool await(int descriptor, short events, Deadline deadline)
{
    pollfd entry{descriptor, events, 0};
    int ready = 0;
    do {
        ready = poll(&entry, 1, static_cast<int>(deadline.remaining().count()));
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

bool SessionBus::send(std::string_view bytes, Deadline deadline)
{
    while (!bytes.empty()) {
        const ssize_t sent = ::send(m_socket.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent > 0)
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        else if (errno == EINTR)
            continue;
        else if (errno != EAGAIN || !await(m_socket.get(), POLLOUT, deadline))
            return false;
    }
    return true;
}

bool SessionBus::receive(Deadline deadline)
{
    std::array<char, 4096> chunk;
    while (await(m_socket.get(), POLLIN, deadline)) {
        const ssize_t count = recv(m_socket.get(), chunk.data(), chunk.size(), MSG_DONTWAIT);
        if (count > 0) {
            m_received.append(chunk.data(), static_cast<std::size_t>(count));
            return true;
        }
        if (count == 0 || (errno != EINTR && errno != EAGAIN)) {
            m_socket.reset();
            return false;
        }
    }
    return false;
}

bool SessionBus::awaitPermission(Deadline deadline)
{
    static constexpr std::size_t longestLine = std::size_t(16) * 1024;
    while (true) {
        const std::size_t end = m_received.find("\r\n");
        if (end == std::string::npos) {
            if (m_received.size() > longestLine || !receive(deadline))
                return false;
            continue;
        }
        const std::string line = m_received.substr(0, end);
        m_received.erase(0, end + 2);
        if (line.starts_with("OK"))
            return true;
        if (!line.starts_with("DATA"))
            return false;
    }
}

std::optional<DBusMessage> SessionBus::nextMessage(Deadline deadline)
{
    while (true) {
        const auto size = encodedSize(m_received);
        if (!size) {
            m_socket.reset();
            return {};
        }
        if (*size > 0 && *size <= m_received.size()) {
            auto message = decode(std::string_view(m_received).substr(0, *size));
            m_received.erase(0, *size);
            return message;
        }
        if (!receive(deadline))
            return {};
    }
}

std::optional<DBusMessage> SessionBus::exchange(const std::vector<DBusMessage>& messages, Deadline deadline)
{
    std::string bytes(handshake);
    std::uint32_t serial = 0;
    bytes += encode(busCall("Hello"), ++serial);
    for (const DBusMessage& message : messages)
        bytes += encode(message, ++serial);
    if (!isConnected() || !send(bytes, deadline) || !awaitPermission(deadline))
        return {};
    while (auto message = nextMessage(deadline)) {
        const bool isReply = message->type == DBusMessageType::methodReturn || message->type == DBusMessageType::error;
        if (isReply && message->replySerial == serial)
            return message;
    }
    return {};
}

} // namespace Tarvik
