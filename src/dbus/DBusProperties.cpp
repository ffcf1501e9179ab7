// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "dbus/DBusProperties.h"

#include <QDBusArgument>
#include <QDBusVariant>

namespace Tarvik::DBusProperties {

using namespace Qt::StringLiterals;

namespace {

QString propertiesInterface()
{
    return u"org.freedesktop.DBus.Properties"_s;
}

} // namespace

QDBusMessage getAll(const QString& service, const QString& path, const QString& interfaceName)
{
    auto call = QDBusMessage::createMethodCall(service, path, propertiesInterface(), u"GetAll"_s);
    call << interfaceName;
    return call;
}

QDBusMessage get(const QString& service, const QString& path, const QString& interfaceName, const QString& property)
{
    auto call = QDBusMessage::createMethodCall(service, path, propertiesInterface(), u"Get"_s);
    call << interfaceName << property;
    return call;
}

QDBusMessage set(const QString& service,
    const QString& path,
    const QString& interfaceName,
    const QString& property,
    const QVariant& value)
{
    auto call = QDBusMessage::createMethodCall(service, path, propertiesInterface(), u"Set"_s);
    call << interfaceName << property << QVariant::fromValue(QDBusVariant(value));
    return call;
}

QVariant propertyIn(const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != u"v"_s)
        return {};
    return answer.arguments().constFirst().value<QDBusVariant>().variant();
}

std::optional<QVariantMap> propertiesIn(const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != u"a{sv}"_s)
        return {};
    return qdbus_cast<QVariantMap>(answer.arguments().constFirst());
}

DBusSignal::Source changesOf(const QString& owner, const QString& path, const QString& interfaceName)
{
    return {owner, path, propertiesInterface(), u"PropertiesChanged"_s, {interfaceName}};
}

std::optional<PropertiesChanged> propertiesChangedIn(const QDBusMessage& signal)
{
    if (signal.signature() != u"sa{sv}as"_s)
        return {};
    const QVariantList arguments = signal.arguments();
    return PropertiesChanged{
        arguments.at(0).toString(), qdbus_cast<QVariantMap>(arguments.at(1)), arguments.at(2).toStringList()};
}

} // namespace Tarvik::DBusProperties
