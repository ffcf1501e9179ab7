// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "dbus/contracts/ModelTypes.h"

#include <QDBusMetaType>

namespace Tarvik {

QDBusArgument& operator<<(QDBusArgument& argument, const JournalRow& row)
{
    argument.beginStructure();
    argument << row.id << row.at << row.kind << row.reason;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, JournalRow& row)
{
    argument.beginStructure();
    argument >> row.id >> row.at >> row.kind >> row.reason;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const AllowlistedApp& app)
{
    argument.beginStructure();
    argument << app.bundleID << app.name;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, AllowlistedApp& app)
{
    argument.beginStructure();
    argument >> app.bundleID >> app.name;
    argument.endStructure();
    return argument;
}

void registerModelTypes()
{
    qDBusRegisterMetaType<JournalRow>();
    qDBusRegisterMetaType<QList<JournalRow>>();
    qDBusRegisterMetaType<AllowlistedApp>();
    qDBusRegisterMetaType<QList<AllowlistedApp>>();
    qDBusRegisterMetaType<QMap<QString, double>>();
}

} // namespace Tarvik
