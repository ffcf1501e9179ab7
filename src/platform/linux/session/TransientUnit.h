// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QList>
#include <QString>
#include <QStringList>

namespace Tarvik {

/// One setting of a unit, org.freedesktop.systemd1(5): (sv).
struct UnitProperty {
    QString name;
    QDBusVariant value;
};

/// (sasb), as in ExecStart.
struct UnitCommand {
    QString path;
    QStringList arguments;
    bool ignoresFailure = false;
};

QDBusArgument& operator<<(QDBusArgument& argument, const UnitProperty& property);
const QDBusArgument& operator>>(const QDBusArgument& argument, UnitProperty& property);
QDBusArgument& operator<<(QDBusArgument& argument, const UnitCommand& command);
const QDBusArgument& operator>>(const QDBusArgument& argument, UnitCommand& command);

/// A unit which exists only as long as it runs.
namespace TransientUnit {

/// The name of the systemd whose units these are.
inline const auto managerName = QStringLiteral("org.freedesktop.systemd1");

/// To be called before any of the types crosses the bus; more than once does no harm.
void registerTypes();

/// The call that has systemd make one and start it. Fails where there is one of this name.
QDBusMessage start(const QString& name, const QList<UnitProperty>& properties);

} // namespace TransientUnit

} // namespace Tarvik

Q_DECLARE_METATYPE(Tarvik::UnitProperty)
Q_DECLARE_METATYPE(Tarvik::UnitCommand)
