// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/UeventMonitor.h"

#include <linux/netlink.h>

#include <algorithm>

namespace Tarvik {

namespace {

/// The kernel's own messages, as opposed to those that udev sends on.
constexpr unsigned kernelGroup = 1;

} // namespace

UeventMonitor::UeventMonitor(QByteArray subsystem, std::function<void()> onEvent)
    : m_subsystem(std::move(subsystem))
    , m_onEvent(std::move(onEvent))
    , m_socket(NETLINK_KOBJECT_UEVENT, kernelGroup, [this](const std::vector<QByteArray>& datagrams, bool lost) {
        const auto isOurs = [this](const QByteArray& datagram) { return subsystemOf(datagram) == m_subsystem; };
        if (lost || std::ranges::any_of(datagrams, isOurs))
            m_onEvent();
    })
{
}

QByteArray UeventMonitor::subsystemOf(const QByteArray& datagram)
{
    const QByteArray key = QByteArrayLiteral("SUBSYSTEM=");
    const auto lines = datagram.split('\0');
    const auto line
        = std::ranges::find_if(lines, [&](const QByteArray& candidate) { return candidate.startsWith(key); });
    return line == lines.end() ? QByteArray{} : line->sliced(key.size());
}

} // namespace Tarvik
