// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/dbus/DBusProperties.h"

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

void connectPropertiesChanged(QDBusConnection connection, const QString& service, QObject* receiver, const char* slot)
{
    connection.connect(service, {}, propertiesInterface(), u"PropertiesChanged"_s, receiver, slot);
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
