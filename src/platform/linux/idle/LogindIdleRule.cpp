// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/idle/LogindIdleRule.h"

#include "dbus/DBusProperties.h"

#include <QStringList>

namespace Tarvik::LogindIdleRule {

using namespace Qt::StringLiterals;

namespace {

IdleSleepAction actionOf(const QString& name)
{
    if (name == "hibernate"_L1)
        return IdleSleepAction::hibernate;
    if (QStringList{u"suspend"_s, u"hybrid-sleep"_s, u"suspend-then-hibernate"_s, u"sleep"_s}.contains(name))
        return IdleSleepAction::suspend;
    return name == "ignore"_L1 || name == "lock"_L1 ? IdleSleepAction::nothing : IdleSleepAction::other;
}

} // namespace

IdleSleepRule in(const QVariantMap& manager)
{
    const auto name = DBusProperties::exactly<QString>(manager.value(u"IdleAction"_s));
    const auto after = DBusProperties::exactly<qulonglong>(manager.value(u"IdleActionUSec"_s));
    if (!name)
        return {.service = u"logind"_s, .action = {}, .after = {}};
    const IdleSleepAction action = actionOf(*name);
    if (action == IdleSleepAction::nothing || !after)
        return {.service = u"logind"_s, .action = action, .after = {}};
    return {.service = u"logind"_s,
        .action = action,
        .after
        = std::chrono::floor<std::chrono::seconds>(std::chrono::microseconds(static_cast<std::int64_t>(*after)))};
}

} // namespace Tarvik::LogindIdleRule
