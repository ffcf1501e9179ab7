// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCall.h"
#include "dbus/DBusProperties.h"
#include "dbus/DBusSignal.h"

#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <optional>

namespace Tarvik {

/// The properties of one interface of one object (org.freedesktop.DBus.Properties) for as long as the process that
/// offers them is on the bus: read whole, then followed.
class RemoteProperties final {
public:
    struct Place {
        /// The unique name of the process.
        QString owner;
        QString path;
        QString interface;
    };

    RemoteProperties(const QDBusConnection& bus, Place place);
    RemoteProperties(const RemoteProperties&) = delete;
    RemoteProperties& operator=(const RemoteProperties&) = delete;

    /// Everything has been read, and `values` is whole.
    bool isKnown() const { return m_isKnown; }
    const QVariantMap& values() const { return m_values; }

    /// The value as a T; nothing when it is not known, missing or of another type.
    template <typename T>
    std::optional<T> value(const QString& name) const
    {
        return DBusProperties::exactly<T>(m_values.value(name));
    }

    /// Reads everything anew, for what changes without an announcement. Until the answer the old values stand.
    void read();

    /// These values have been read, all of them, or announced, some of them; they may be what they were. Not called
    /// before everything is known.
    std::function<void(const QVariantMap& values)> onChange;

    /// The object did not answer, or not with properties; `answer` tells. It is read again when it shows signs of life.
    /// The receiver may destroy this.
    std::function<void(const QDBusMessage& answer)> onFailure;

private:
    void take(const QDBusMessage& answer);
    void follow(const QDBusMessage& signal);

    QDBusConnection m_bus;
    Place m_place;
    QVariantMap m_values;
    bool m_isKnown = false;
    /// A value was announced while everything was being read.
    bool m_hasChanged = false;
    DBusCall m_reading;
    DBusSignal m_changes;
};

} // namespace Tarvik
