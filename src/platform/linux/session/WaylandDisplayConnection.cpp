// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/session/WaylandDisplayConnection.h"

#include <QFile>

#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace Tarvik {

std::unique_ptr<WaylandDisplayConnection> WaylandDisplayConnection::open(const QString& socket)
{
    const QByteArray path = QFile::encodeName(socket);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= static_cast<qsizetype>(sizeof address.sun_path))
        return nullptr;
    std::ranges::copy(path, address.sun_path);
    FileDescriptor descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (connect(descriptor.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        return nullptr;
    return std::unique_ptr<WaylandDisplayConnection>(new WaylandDisplayConnection(std::move(descriptor)));
}

WaylandDisplayConnection::WaylandDisplayConnection(FileDescriptor socket)
    : m_socket(std::move(socket))
    , m_notifier(m_socket.get(), QSocketNotifier::Read)
{
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { receive(); });
}

void WaylandDisplayConnection::receive()
{
    std::array<char, 256> ignored;
    ssize_t length = 0;
    do
        length = recv(m_socket.get(), ignored.data(), ignored.size(), 0);
    while (length > 0);
    if (length < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    m_notifier.setEnabled(false);
    onLost();
}

} // namespace Tarvik
