// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/idle/KdeIdleRule.h"

#include "platform/linux/idle/KdeConfig.h"

#include <QFileInfo>

namespace Tarvik::KdeIdleRule {

using namespace Qt::StringLiterals;
using std::chrono::milliseconds;
using std::chrono::seconds;

namespace {

IdleSleepAction actionOf(int number)
{
    switch (number) {
    case 1:
    case 4:
        // To RAM, or to both.
        return IdleSleepAction::suspend;
    case 2:
        return IdleSleepAction::hibernate;
    case 8:
        return IdleSleepAction::other;
    default:
        return IdleSleepAction::nothing;
    }
}

IdleSleepRule rule(IdleSleepAction action, seconds after)
{
    if (action == IdleSleepAction::nothing || after <= seconds::zero())
        return {.service = u"Plasma"_s, .action = IdleSleepAction::nothing, .after = {}};
    return {.service = u"Plasma"_s, .action = action, .after = after};
}

IdleSleepRule unknown()
{
    return {.service = u"Plasma"_s, .action = {}, .after = {}};
}

QStringList filesIn(const QStringList& directories, const QString& name)
{
    QStringList files;
    for (const QString& directory : directories)
        files.append(directory + u'/' + name);
    return files;
}

/// PowerDevil writes its defaults into the file when there is none.
IdleSleepRule ofPlasma5(const QString& profile, const QStringList& directories)
{
    const QStringList files = filesIn(directories, u"powermanagementprofilesrc"_s);
    if (!QFileInfo::exists(files.value(0)))
        return unknown();
    const QString group = u"[%1][SuspendSession]"_s.arg(profile);
    const auto idleTime = KdeConfig::number(files, group, u"idleTime"_s);
    const auto action = KdeConfig::number(files, group, u"suspendType"_s);
    return rule(actionOf(action.value_or(0)), std::chrono::floor<seconds>(milliseconds(idleTime.value_or(0))));
}

IdleSleepRule ofPlasma6(const Facts& facts, const QStringList& directories)
{
    const QStringList files = filesIn(directories, u"powerdevilrc"_s);
    const QString group = u"[%1][SuspendAndShutdown]"_s.arg(facts.profile);
    const int usualAction = facts.canSuspend && !facts.isVirtualMachine ? 1 : 0;
    const int usualTime = facts.profile == "Battery"_L1 ? 600 : facts.profile == "LowBattery"_L1 ? 300 : 900;
    const auto action = KdeConfig::number(files, group, u"AutoSuspendAction"_s);
    const auto idleTime = KdeConfig::number(files, group, u"AutoSuspendIdleTimeoutSec"_s);
    return rule(actionOf(action.value_or(usualAction)), seconds(idleTime.value_or(usualTime)));
}

} // namespace

IdleSleepRule read(const Facts& facts, const QStringList& directories)
{
    if (facts.profile.isEmpty())
        return unknown();
    switch (facts.release) {
    case 5:
        return ofPlasma5(facts.profile, directories);
    case 6:
        return ofPlasma6(facts, directories);
    default:
        return unknown();
    }
}

} // namespace Tarvik::KdeIdleRule
