// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/locks/LockRules.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace Tarvik {

/// A lock as a desktop's service lists it.
struct ListedLock {
    /// What the program calls itself.
    QString who;
    QString why;
    SleepLockEffects effects = {};
    std::optional<qint64> process = {};
    /// As long as it is there, its service holds one of logind against sleep.
    bool isMirrored = false;

    bool operator==(const ListedLock&) const = default;
};

/// What the services that keep locks have answered.
struct LockAnswers {
    LockFacts facts = {};
    /// Those that are there; of each that is and has not answered, there is no list.
    bool hasLogind = false;
    bool hasSessionManager = false;
    bool hasPowerManager = false;
    std::optional<QList<LogindInhibitor>> logind = {};
    std::optional<QList<ListedLock>> sessionManager = {};
    /// PowerDevil's, or what else has the name org.freedesktop.PowerManagement.
    std::optional<QList<ListedLock>> powerManager = {};
    QString powerManagerLabel = {};
    /// Where it is known.
    std::optional<qint64> sessionManagerProcess = {};
    /// Of the daemons that act on the lid instead of logind.
    QList<qint64> lidDaemonProcesses = {};
    /// Services of which it is known that they list nothing.
    QStringList silentServices = {};
};

} // namespace Tarvik
