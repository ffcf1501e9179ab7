// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/locks/PowerManagerLocks.h"

#include "dbus/BusNames.h"

#include <QDBusArgument>

namespace Tarvik::PowerManagerLocks {

using namespace Qt::StringLiterals;
using enum SleepLockEffect;

namespace {

QDBusMessage policyAgentCall(const QString& method)
{
    return QDBusMessage::createMethodCall(BusNames::kdePowerManager,
        u"/org/kde/Solid/PowerManagement/PolicyAgent"_s,
        u"org.kde.Solid.PowerManagement.PolicyAgent"_s,
        method);
}

} // namespace

QDBusMessage listOfPowerDevil()
{
    return policyAgentCall(u"ListInhibitions"_s);
}

QDBusMessage hasInhibition(Policy policy)
{
    auto call = policyAgentCall(u"HasInhibition"_s);
    call.setArguments({static_cast<uint>(policy)});
    return call;
}

std::optional<QList<ListedLock>> locksOfPowerDevil(const QDBusMessage& list, bool keepsSessionUp, bool keepsDisplayOn)
{
    if (list.type() != QDBusMessage::ReplyMessage || list.signature() != "a(ss)"_L1)
        return {};
    QList<ListedLock> locks;
    const auto array = list.arguments().constFirst().value<QDBusArgument>();
    array.beginArray();
    while (!array.atEnd()) {
        ListedLock lock;
        array.beginStructure();
        array >> lock.who >> lock.why;
        array.endStructure();
        lock.effects.setFlag(idleSleep, keepsSessionUp);
        locks.append(lock);
    }
    array.endArray();
    if (keepsDisplayOn && locks.size() == 1)
        locks.first().effects |= idleDisplay;
    return locks;
}

QDBusMessage listOfPowerManagement()
{
    return QDBusMessage::createMethodCall(BusNames::powerManagement,
        u"/org/freedesktop/PowerManagement/Inhibit"_s,
        u"org.freedesktop.PowerManagement.Inhibit"_s,
        u"GetInhibitors"_s);
}

std::optional<QList<ListedLock>> locksOfPowerManagement(const QDBusMessage& list)
{
    if (list.type() != QDBusMessage::ReplyMessage || list.signature() != "as"_L1)
        return {};
    QList<ListedLock> locks;
    for (const QString& who : list.arguments().constFirst().toStringList())
        locks.append({.who = who, .why = {}, .effects = idleSleep | idleDisplay});
    return locks;
}

} // namespace Tarvik::PowerManagerLocks
