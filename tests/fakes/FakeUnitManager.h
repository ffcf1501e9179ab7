// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeDBusService.h"
#include "platform/linux/session/TransientUnit.h"

#include <QDBusError>
#include <QDBusObjectPath>
#include <QStringList>
#include <QVariantMap>

namespace Tarvik {

/// The user's systemd, as far as starting transient units goes: keeps what it was told to start, and starts nothing.
class FakeUnitManager final : public FakeDBusService {
public:
    explicit FakeUnitManager(QDBusConnection bus)
        : FakeDBusService(std::move(bus), TransientUnit::managerName, QStringLiteral("/org/freedesktop/systemd1"))
    {
        TransientUnit::registerTypes();
        handler = [this](const QDBusMessage& call) { return answer(call); };
    }

    /// "NAME MODE" of every unit.
    QStringList started;
    /// Of the last one.
    QVariantMap properties;
    QList<UnitCommand> commands;
    bool refuses = false;

private:
    QDBusMessage answer(const QDBusMessage& call)
    {
        if (call.member() != QStringLiteral("StartTransientUnit")
            || call.signature() != QStringLiteral("ssa(sv)a(sa(sv))"))
            return call.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("No such method"));
        if (refuses)
            return call.createErrorReply(QDBusError::InvalidArgs, QStringLiteral("Not like that"));
        const QVariantList arguments = call.arguments();
        started.append(arguments.at(0).toString() + QLatin1Char(' ') + arguments.at(1).toString());
        properties.clear();
        for (const UnitProperty& property : qdbus_cast<QList<UnitProperty>>(arguments.at(2)))
            properties[property.name] = property.value.variant();
        commands = qdbus_cast<QList<UnitCommand>>(properties.take(QStringLiteral("ExecStart")));
        return call.createReply(
            QVariant::fromValue(QDBusObjectPath(QStringLiteral("/org/freedesktop/systemd1/job/1"))));
    }
};

} // namespace Tarvik
