// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusSignal.h"

#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>

#include <optional>

/// The standard interface org.freedesktop.DBus.Properties, with its types checked.
namespace Tarvik::DBusProperties {

QDBusMessage getAll(const QString& service, const QString& path, const QString& interfaceName);

QDBusMessage get(const QString& service, const QString& path, const QString& interfaceName, const QString& property);

QDBusMessage set(const QString& service,
    const QString& path,
    const QString& interfaceName,
    const QString& property,
    const QVariant& value);

/// The value that an answer to Get consists of; an invalid one for an error or anything else.
QVariant propertyIn(const QDBusMessage& answer);

/// The map that an answer to GetAll consists of; nothing for an error or anything else.
std::optional<QVariantMap> propertiesIn(const QDBusMessage& answer);

struct PropertiesChanged {
    QString interfaceName;
    QVariantMap changed;
    QStringList invalidated;
};

/// The signal PropertiesChanged for one interface of an object of `owner`, a unique name.
DBusSignal::Source changesOf(const QString& owner, const QString& path, const QString& interfaceName);

/// What the signal tells; nothing when its arguments are of other types.
std::optional<PropertiesChanged> propertiesChangedIn(const QDBusMessage& signal);

/// The value as a T, if it is exactly that.
template <typename T>
std::optional<T> exactly(const QVariant& value)
{
    return value.metaType() == QMetaType::fromType<T>() ? std::optional<T>{value.value<T>()} : std::nullopt;
}

} // namespace Tarvik::DBusProperties
