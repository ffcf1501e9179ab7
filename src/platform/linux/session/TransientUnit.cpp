// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/session/TransientUnit.h"

#include <QDBusMetaType>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

/// (sa(sv)): units that are made along with it.
struct AuxiliaryUnit {
    QString name;
    QList<UnitProperty> properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const AuxiliaryUnit& unit)
{
    argument.beginStructure();
    argument << unit.name << unit.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, AuxiliaryUnit& unit)
{
    argument.beginStructure();
    argument >> unit.name >> unit.properties;
    argument.endStructure();
    return argument;
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const UnitProperty& property)
{
    argument.beginStructure();
    argument << property.name << property.value;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, UnitProperty& property)
{
    argument.beginStructure();
    argument >> property.name >> property.value;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const UnitCommand& command)
{
    argument.beginStructure();
    argument << command.path << command.arguments << command.ignoresFailure;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, UnitCommand& command)
{
    argument.beginStructure();
    argument >> command.path >> command.arguments >> command.ignoresFailure;
    argument.endStructure();
    return argument;
}

void TransientUnit::registerTypes()
{
    qDBusRegisterMetaType<UnitProperty>();
    qDBusRegisterMetaType<QList<UnitProperty>>();
    qDBusRegisterMetaType<UnitCommand>();
    qDBusRegisterMetaType<QList<UnitCommand>>();
    qDBusRegisterMetaType<AuxiliaryUnit>();
    qDBusRegisterMetaType<QList<AuxiliaryUnit>>();
}

QDBusMessage TransientUnit::start(const QString& name, const QList<UnitProperty>& properties)
{
    registerTypes();
    auto call = QDBusMessage::createMethodCall(
        managerName, u"/org/freedesktop/systemd1"_s, u"org.freedesktop.systemd1.Manager"_s, u"StartTransientUnit"_s);
    call << name << u"fail"_s << QVariant::fromValue(properties) << QVariant::fromValue(QList<AuxiliaryUnit>());
    return call;
}

} // namespace Tarvik
