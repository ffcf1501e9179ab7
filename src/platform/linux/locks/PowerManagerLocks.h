// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/locks/LockAnswers.h"

#include <QDBusMessage>

#include <optional>

/// The inhibitors that power managers of desktops list.
namespace Tarvik::PowerManagerLocks {

/// Of what PowerDevil's policies keep off.
enum class Policy { interruptSession = 1, changeScreenSettings = 4 };

/// The calls that ask PowerDevil for all inhibitors that it goes by, and whether one of them is of that policy.
QDBusMessage listOfPowerDevil();
QDBusMessage hasInhibition(Policy policy);

/// What the answers tell. PowerDevil does not list the policies, so that the display counts only where none but this
/// lock can be the one that keeps it on. Nothing for an error or anything else.
std::optional<QList<ListedLock>> locksOfPowerDevil(const QDBusMessage& list, bool keepsSessionUp, bool keepsDisplayOn);

/// The call that asks the owner of org.freedesktop.PowerManagement.
QDBusMessage listOfPowerManagement();

/// What its answer tells: XFCE's power manager tells the programs only, and they keep the display on, too.
std::optional<QList<ListedLock>> locksOfPowerManagement(const QDBusMessage& list);

} // namespace Tarvik::PowerManagerLocks
