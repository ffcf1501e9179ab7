// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QVariantMap>

namespace Tarvik {

/// An entry with its properties: (ia{sv}).
struct DBusMenuItem {
    int id = 0;
    QVariantMap properties;

    bool operator==(const DBusMenuItem&) const = default;
};

/// An entry with the names of properties that it has no longer: (ias).
struct DBusMenuItemKeys {
    int id = 0;
    QStringList properties;

    bool operator==(const DBusMenuItemKeys&) const = default;
};

/// An entry with what is below it: (ia{sv}av), each variant one of the same.
struct DBusMenuLayoutItem {
    int id = 0;
    QVariantMap properties;
    QList<DBusMenuLayoutItem> children;
};

/// What the user did to an entry: (isvu).
struct DBusMenuEvent {
    int id = 0;
    QString eventId;
    QDBusVariant data;
    uint timestamp = 0;
};

QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuItem& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuItem& item);
QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuItemKeys& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuItemKeys& item);
QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuLayoutItem& item);
const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuLayoutItem& item);
QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuEvent& event);

/// To be called before any of the types crosses the bus; more than once does no harm.
void registerDBusMenuTypes();

} // namespace Tarvik

Q_DECLARE_METATYPE(Tarvik::DBusMenuItem)
Q_DECLARE_METATYPE(Tarvik::DBusMenuItemKeys)
Q_DECLARE_METATYPE(Tarvik::DBusMenuLayoutItem)
Q_DECLARE_METATYPE(Tarvik::DBusMenuEvent)
