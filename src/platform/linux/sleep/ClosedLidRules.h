// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/inhibitors/LogindInhibitors.h"

#include <QList>

#include <cstdint>
#include <optional>

namespace Tarvik {

/// What can be told about who acts on a closed lid.
struct ClosedLidFacts {
    /// 0 where systemd does not answer.
    int systemdVersion = 0;
    /// GNOME's settings daemon runs. It leaves a closed lid to logind, and takes the lid itself only while there is
    /// another display.
    bool isGnome = false;
    /// The power daemon of KDE, XFCE, MATE, Cinnamon or LXQt runs. They take the lid from logind and ask for suspend
    /// themselves when it is being closed.
    bool hasLidDaemon = false;
    /// As logind lists them, our own included.
    QList<LogindInhibitor> inhibitors = {};
    /// The ids of this process and of its user.
    std::uint32_t ownProcess = 0;
    std::uint32_t ownUser = 0;
    bool isLidClosed = false;
    /// There is a dock or another display, as logind counts them.
    bool isDocked = false;
    /// Whether the desktop's daemon is set to suspend; nothing where that cannot be read.
    std::optional<bool> daemonSuspends = {};

    bool operator==(const ClosedLidFacts&) const = default;
};

namespace ClosedLidRules {

/// Whether a lock of our own user, for which nobody needs an administrator, keeps the machine awake: logind heeds it in
/// any case, the desktop's daemon is stopped by it only on newer releases.
bool ownLockSuffices(const ClosedLidFacts& facts);

enum class Step {
    nothing,
    /// Somebody objects, perhaps only until the lock that has ended is gone.
    wait,
    suspend,
};

/// What is to be done for a lid that was closed while a lock was held, which is no more. logind looks at the lid again
/// by itself; a desktop's daemon does not.
Step afterLock(const ClosedLidFacts& facts);

} // namespace ClosedLidRules

} // namespace Tarvik
