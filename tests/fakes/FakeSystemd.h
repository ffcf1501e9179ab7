// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QList>
#include <QMap>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace Tarvik {

/// One row of the answer to ListUnitsByPatterns.
struct FakeUnitStatus {
    QString name;
    QString activeState;
    QDBusObjectPath path;
};

inline QDBusArgument& operator<<(QDBusArgument& argument, const FakeUnitStatus& unit)
{
    argument.beginStructure();
    argument << unit.name << QString() << QStringLiteral("loaded") << unit.activeState << QString() << QString()
             << unit.path << quint32{0} << QString() << QDBusObjectPath(QStringLiteral("/"));
    argument.endStructure();
    return argument;
}

inline const QDBusArgument& operator>>(const QDBusArgument& argument, FakeUnitStatus&)
{
    return argument;
}

/// The systemd user manager, as far as listing units goes, on a connection of its own. Signals go out only to those
/// who have subscribed.
class FakeSystemd : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.systemd1.Manager")

public:
    FakeSystemd()
        : m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("fake-systemd")))
    {
        qDBusRegisterMetaType<FakeUnitStatus>();
        qDBusRegisterMetaType<QList<FakeUnitStatus>>();
        m_bus.registerObject(QStringLiteral("/org/freedesktop/systemd1"), this, QDBusConnection::ExportAllSlots);
    }

    ~FakeSystemd() override
    {
        // The bus does not see at once that a connection is closed; until then the name would not be free.
        vanish();
        QDBusConnection::disconnectFromBus(QStringLiteral("fake-systemd"));
    }

    bool appear() { return m_bus.registerService(QStringLiteral("org.freedesktop.systemd1")); }

    void vanish()
    {
        m_bus.unregisterService(QStringLiteral("org.freedesktop.systemd1"));
        subscriptions = 0;
    }

    /// Loads a unit that does not run yet.
    void load(const QString& name)
    {
        m_units.insert(name, QStringLiteral("inactive"));
        emitManager(QStringLiteral("UnitNew"), {name, QVariant::fromValue(path(name))});
    }

    /// A job has started the unit.
    void start(const QString& name)
    {
        m_units.insert(name, QStringLiteral("active"));
        const QDBusObjectPath job(QStringLiteral("/org/freedesktop/systemd1/job/1"));
        emitManager(QStringLiteral("JobRemoved"), {quint32{1}, QVariant::fromValue(job), name, QStringLiteral("done")});
    }

    /// The unit ends and is forgotten.
    void remove(const QString& name)
    {
        m_units.remove(name);
        emitManager(QStringLiteral("UnitRemoved"), {name, QVariant::fromValue(path(name))});
    }

    /// The unit ends and stays loaded.
    void fail(const QString& name)
    {
        m_units.insert(name, QStringLiteral("failed"));
        auto signal = QDBusMessage::createSignal(
            path(name).path(), QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"));
        signal << QStringLiteral("org.freedesktop.systemd1.Unit")
               << QVariantMap{{QStringLiteral("ActiveState"), QStringLiteral("failed")}} << QStringList();
        m_bus.send(signal);
    }

    int subscriptions = 0;
    int listings = 0;
    /// Answer with something that is not a list of units.
    bool isBroken = false;

public Q_SLOTS:
    void Subscribe() { ++subscriptions; }

    void ListUnitsByPatterns(const QStringList& states, const QStringList& patterns)
    {
        ++listings;
        setDelayedReply(true);
        m_patterns = patterns;
        QList<FakeUnitStatus> found;
        for (auto it = m_units.cbegin(); it != m_units.cend(); ++it) {
            if (states.contains(it.value()))
                found.append({it.key(), it.value(), path(it.key())});
        }
        m_bus.send(message().createReply(isBroken ? QVariant(QStringLiteral("nonsense")) : QVariant::fromValue(found)));
    }

private:
    static QDBusObjectPath path(const QString& name)
    {
        return QDBusObjectPath(
            QStringLiteral("/org/freedesktop/systemd1/unit/u") + QString::fromLatin1(name.toUtf8().toHex()));
    }

    void emitManager(const QString& member, const QVariantList& arguments)
    {
        if (subscriptions == 0)
            return;
        auto signal = QDBusMessage::createSignal(
            QStringLiteral("/org/freedesktop/systemd1"), QStringLiteral("org.freedesktop.systemd1.Manager"), member);
        signal.setArguments(arguments);
        m_bus.send(signal);
    }

    QDBusConnection m_bus;
    QMap<QString, QString> m_units;
    QStringList m_patterns;
};

} // namespace Tarvik

Q_DECLARE_METATYPE(Tarvik::FakeUnitStatus)
