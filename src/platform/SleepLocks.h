// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFlags>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace Tarvik {

/// What a lock stands in the way of.
enum class SleepLockEffect {
    /// The computer going to sleep for lack of activity.
    idleSleep = 1,
    /// The displays going off, and with it where the desktop couples the two, the computer going to sleep.
    idleDisplay = 2,
    /// Every sleep, one that the user asks for included.
    sleep = 4,
    /// The sleep that a closed lid leads to.
    lid = 8,
};
Q_DECLARE_FLAGS(SleepLockEffects, SleepLockEffect)
Q_DECLARE_OPERATORS_FOR_FLAGS(SleepLockEffects)

/// One lock against sleep that some program on this computer holds.
struct SleepLock {
    /// The program's name for people ("Firefox"), or what it calls itself where no better one is known; never empty.
    QString program;
    /// Why, in the program's own words; may be empty.
    QString reason;
    /// Whose lock it is, in the words of `PowerAssertionHold::service`: "logind", "session manager",
    /// "KDE power management", ...
    QString service;
    /// What it really stands in the way of on this desktop and this systemd; none where nobody here goes by it.
    SleepLockEffects effects;
    /// Process id of the holder, where it is known.
    std::optional<qint64> process;
    /// Tarvik, or its helper, holds it.
    bool isOurs = false;

    bool operator==(const SleepLock&) const = default;
};

struct SleepLockList {
    QList<SleepLock> locks;
    /// Services that are there but keep who holds their locks to themselves, or did not answer: what they hold is not
    /// in the list.
    QStringList silentServices;

    bool operator==(const SleepLockList&) const = default;
};

/// Everybody's locks against sleep, wherever this desktop keeps them.
class SleepLocks {
public:
    virtual ~SleepLocks() = default;

    /// Asks all services that are running, and starts none. The answer comes later, within three seconds, and once;
    /// destroying this object drops it.
    virtual void list(std::function<void(const SleepLockList&)> done) = 0;
};

} // namespace Tarvik
