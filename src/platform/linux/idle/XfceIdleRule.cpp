// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/idle/XfceIdleRule.h"

#include "platform/linux/xfconf/XfcePowerSettings.h"

namespace Tarvik::XfceIdleRule {

using namespace Qt::StringLiterals;

namespace {

IdleSleepAction actionOf(const Settings& settings, bool isOnMains)
{
    constexpr int suspend = 1;
    constexpr int hibernate = 2;
    constexpr int shutDown = 4;
    constexpr int hybridSleep = 5;
    const int usual = !isOnMains && XfcePowerSettings::isOld(settings.release) ? hibernate : suspend;
    switch (settings.sleepMode.isValid() ? settings.sleepMode.toInt() : usual) {
    case suspend:
    case hybridSleep:
        return IdleSleepAction::suspend;
    case hibernate:
        return IdleSleepAction::hibernate;
    case shutDown:
        return IdleSleepAction::other;
    default:
        return IdleSleepAction::nothing;
    }
}

} // namespace

IdleSleepRule of(const Settings& settings, bool isOnMains)
{
    bool isNumber = false;
    const uint minutes = settings.minutes.toUInt(&isNumber);
    const bool isSet = isNumber && !XfcePowerSettings::isNever(minutes, settings.release);
    const IdleSleepAction action = actionOf(settings, isOnMains);
    if (!isSet || settings.presentationMode == true || action == IdleSleepAction::nothing)
        return {.service = u"XFCE"_s, .action = IdleSleepAction::nothing, .after = {}};
    return {.service = u"XFCE"_s, .action = action, .after = std::chrono::minutes(minutes)};
}

} // namespace Tarvik::XfceIdleRule
