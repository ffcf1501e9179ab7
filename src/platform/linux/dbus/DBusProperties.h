// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>

#include <optional>

class QObject;

/// The standard interface org.freedesktop.DBus.Properties, with its types checked.
namespace Tarvik::DBusProperties {

QDBusMessage getAll(const QString& service, const QString& path, const QString& interfaceName);

QDBusMessage get(const QString& service, const QString& path, const QString& interfaceName, const QString& property);

/// The value that an answer to Get consists of; an invalid one for an error or anything else.
QVariant propertyIn(const QDBusMessage& answer);

/// The map that an answer to GetAll consists of; nothing for an error or anything else.
std::optional<QVariantMap> propertiesIn(const QDBusMessage& answer);

struct PropertiesChanged {
    QString interfaceName;
    QVariantMap changed;
    QStringList invalidated;
};

/// Subscribes to the signal PropertiesChanged of all objects of a service; the slot takes a QDBusMessage.
void connectPropertiesChanged(QDBusConnection connection, const QString& service, QObject* receiver, const char* slot);

/// What the signal tells; nothing when its arguments are of other types.
std::optional<PropertiesChanged> propertiesChangedIn(const QDBusMessage& signal);

/// The value as a T, if it is exactly that.
template <typename T>
std::optional<T> exactly(const QVariant& value)
{
    return value.metaType() == QMetaType::fromType<T>() ? std::optional<T>{value.value<T>()} : std::nullopt;
}

} // namespace Tarvik::DBusProperties
