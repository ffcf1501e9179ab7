// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "dbus/DBusCalls.h"
#include "dbus/RemoteProperties.h"

#include <QHash>
#include <QObject>
#include <QVariantMap>
#include <QtQmlIntegration>

#include <functional>
#include <memory>

namespace Tarvik {

/// An object of the running Tarvik as another process sees it: the base of mirrors, which add typed properties under
/// the names that the interface has on the bus, put so that QML can use them. Values are read when Tarvik appears and
/// then follow PropertiesChanged; until then, and of a property that was sent with another type, they are the type's
/// default or the last known value. Mirrors name this class with its namespace, without which the tools of older
/// versions of Qt do not find it.
class PropertyMirror : public QObject {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(bool connected READ isConnected NOTIFY connectedChanged)

public:
    /// All values have been read and Tarvik is there.
    bool isConnected() const { return m_isConnected; }

    /// Reads all values anew, for what may change without an announcement.
    Q_INVOKABLE void refresh();

Q_SIGNALS:
    void connectedChanged();
    /// Tarvik is gone, or was not there to begin with.
    void lost();

protected:
    /// `metaObject` is that of the mirror's own class, whose properties with a NOTIFY signal are those of the
    /// interface. `initial` holds the values that stand for "not known yet" where that is not the type's default, and
    /// with them the types on the bus where those differ from the properties' own.
    PropertyMirror(const QDBusConnection& bus,
        const QMetaObject& metaObject,
        const char* interface,
        const QVariantMap& initial = {});

    QVariant value(const char* property) const { return m_values.value(QString::fromLatin1(property)); }
    /// Of a property that has the same name on the bus: takes the value over at once and sends it; what Tarvik made of
    /// it is read back after its answer.
    void write(const char* property, const QVariant& value);
    /// `done` gets the answer, a reply or an error; without it an error is logged.
    void call(const QString& method,
        const QVariantList& arguments = {},
        std::function<void(const QDBusMessage& answer)> done = {});

private:
    void followOwner();
    void take(const QVariantMap& values);
    void notify(const QString& property);
    void setConnected(bool connected);

    QDBusConnection m_bus;
    const QMetaObject& m_metaObject;
    QString m_interface;
    BusNameWatch m_names;
    std::unique_ptr<RemoteProperties> m_remote;
    DBusCalls m_calls;
    QVariantMap m_values;
    /// How many writes of a property are under way; meanwhile, announcements may carry an older value.
    QHash<QString, int> m_writes;
    bool m_isConnected = false;
};

} // namespace Tarvik
