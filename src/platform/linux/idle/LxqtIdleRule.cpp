// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/idle/LxqtIdleRule.h"

#include <QSettings>
#include <QTime>

#include <algorithm>

namespace Tarvik::LxqtIdleRule {

using namespace Qt::StringLiterals;
using std::chrono::seconds;

namespace {

IdleSleepAction actionOf(int number)
{
    switch (number) {
    case 4:
        return IdleSleepAction::suspend;
    case 1:
        return IdleSleepAction::hibernate;
    case 0:
    case 2:
    case 3:
        // Log out, restart, shut down.
        return IdleSleepAction::other;
    default:
        return IdleSleepAction::nothing;
    }
}

/// Hours do not count.
seconds timeOf(const QSettings& settings, const QString& key)
{
    const QVariant time = settings.value(key);
    if (time.isValid())
        return std::chrono::minutes(time.toTime().minute()) + seconds(time.toTime().second());
    return seconds(std::clamp(settings.value(u"idlenessTimeSecs"_s, 900).toInt(), 60, 3599));
}

} // namespace

IdleSleepRule read(bool isOnMains)
{
    const QSettings settings(u"lxqt"_s, u"lxqt-powermanagement"_s);
    constexpr int nothing = -1;
    const QVariant old = settings.value(u"idlenessAction"_s, nothing);
    const int number = settings.value(isOnMains ? u"idlenessACAction"_s : u"idlenessBatteryAction"_s, old).toInt();
    const IdleSleepAction action
        = settings.value(u"enableIdlenessWatcher"_s, false).toBool() ? actionOf(number) : IdleSleepAction::nothing;
    if (action == IdleSleepAction::nothing)
        return {.service = u"LXQt"_s, .action = action, .after = {}};
    return {.service = u"LXQt"_s,
        .action = action,
        .after = timeOf(settings, isOnMains ? u"idlenessACTime"_s : u"idlenessBatteryTime"_s)};
}

} // namespace Tarvik::LxqtIdleRule
