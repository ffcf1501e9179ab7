// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/kernel/NetlinkSocket.h"

#include <QByteArray>

#include <functional>
#include <optional>

namespace Tarvik {

/// Hears of thermal zones from the kernel: a trip was crossed or moved, a zone came or went. Speaks generic netlink
/// with the family "thermal", multicast group "event" (<linux/thermal.h>); silent where the kernel has no such family.
class ThermalEvents {
public:
    /// `onEvent` is called from the event loop, once for events that arrive together.
    explicit ThermalEvents(std::function<void()> onEvent);

    /// How the running kernel numbers the family and its group.
    struct Family {
        quint16 id = 0;
        quint32 eventGroup = 0;

        bool operator==(const Family&) const = default;
    };

    /// The request that asks for the family by its name.
    static QByteArray familyRequest();
    /// The kernel's answer to it; nothing when the datagram is anything else or malformed.
    static std::optional<Family> familyOf(const QByteArray& datagram);
    /// Whether the datagram tells of a zone or a trip. Cooling devices, which step far more often, do not count.
    static bool isZoneEvent(const QByteArray& datagram, quint16 familyId);

private:
    void receive(const std::vector<QByteArray>& datagrams, bool lost);

    std::function<void()> m_onEvent;
    std::optional<Family> m_family;
    NetlinkSocket m_socket;
};

} // namespace Tarvik
