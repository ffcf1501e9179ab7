// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/StatusTypes.h"

#include <QDBusMetaType>

namespace Tarvik {

QDBusArgument& operator<<(QDBusArgument& argument, const StatusLease& lease)
{
    argument.beginStructure();
    argument << lease.key << lease.tool << lease.reason << lease.acquiredAt << lease.remaining;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusLease& lease)
{
    argument.beginStructure();
    argument >> lease.key >> lease.tool >> lease.reason >> lease.acquiredAt >> lease.remaining;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const StatusAssertion& assertion)
{
    argument.beginStructure();
    argument << assertion.type << assertion.service << assertion.what << assertion.isEffective;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusAssertion& assertion)
{
    argument.beginStructure();
    argument >> assertion.type >> assertion.service >> assertion.what >> assertion.isEffective;
    argument.endStructure();
    return argument;
}

void registerStatusTypes()
{
    qDBusRegisterMetaType<StatusLease>();
    qDBusRegisterMetaType<StatusLeaseList>();
    qDBusRegisterMetaType<StatusAssertion>();
    qDBusRegisterMetaType<StatusAssertionList>();
}

} // namespace Tarvik
