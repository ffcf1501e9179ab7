// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/kernel/NetlinkSocket.h"

#include <QByteArray>

#include <functional>

namespace Tarvik {

/// Hears of the kernel's devices of one subsystem: that they come, go or change.
class UeventMonitor {
public:
    /// `onEvent` is called from the event loop, once for events that arrive together.
    UeventMonitor(QByteArray subsystem, std::function<void()> onEvent);

    /// The value of "SUBSYSTEM" in one of the kernel's uevents ("change@/devices/…", then "KEY=value", each ended by a
    /// zero byte); empty when there is none.
    static QByteArray subsystemOf(const QByteArray& datagram);

private:
    QByteArray m_subsystem;
    std::function<void()> m_onEvent;
    NetlinkSocket m_socket;
};

} // namespace Tarvik
