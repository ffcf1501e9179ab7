// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/NetlinkSocket.h"

#include <linux/netlink.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>

namespace Tarvik {

namespace {

/// How many datagrams one loop turn takes, so that a flood does not starve everything else.
constexpr int mostPerTurn = 64;

sockaddr_nl address(unsigned groups)
{
    return {.nl_family = AF_NETLINK, .nl_pad = 0, .nl_pid = 0, .nl_groups = groups};
}

} // namespace

NetlinkSocket::NetlinkSocket(int protocol, unsigned groups, Receiver receiver)
    : m_descriptor(socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, protocol))
    , m_receiver(std::move(receiver))
{
    const sockaddr_nl own = address(groups);
    if (!m_descriptor.isValid() || bind(m_descriptor.get(), reinterpret_cast<const sockaddr*>(&own), sizeof own) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor.get(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { receive(); });
}

void NetlinkSocket::send(const QByteArray& request) const
{
    const sockaddr_nl kernel = address(0);
    sendto(m_descriptor.get(),
        request.constData(),
        static_cast<std::size_t>(request.size()),
        0,
        reinterpret_cast<const sockaddr*>(&kernel),
        sizeof kernel);
}

void NetlinkSocket::join(unsigned group) const
{
    setsockopt(m_descriptor.get(), SOL_NETLINK, NETLINK_ADD_MEMBERSHIP, &group, sizeof group);
}

void NetlinkSocket::receive()
{
    std::vector<QByteArray> datagrams;
    bool lost = false;
    for (int taken = 0; taken < mostPerTurn; ++taken) {
        std::array<char, 8192> buffer{};
        sockaddr_nl sender{};
        socklen_t senderSize = sizeof sender;
        const ssize_t length = recvfrom(
            m_descriptor.get(), buffer.data(), buffer.size(), 0, reinterpret_cast<sockaddr*>(&sender), &senderSize);
        if (length < 0) {
            lost |= errno == ENOBUFS;
            if (errno == ENOBUFS || errno == EINTR)
                continue;
            // A socket that is broken for good stays readable: listening on would never rest.
            if (errno != EAGAIN)
                m_notifier->setEnabled(false);
            break;
        }
        // Any process may send to this socket; only the kernel's port is 0.
        if (sender.nl_pid == 0)
            datagrams.emplace_back(buffer.data(), length);
    }
    if (!datagrams.empty() || lost)
        m_receiver(datagrams, lost);
}

} // namespace Tarvik
