// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QMap>
#include <QVariantMap>

namespace Tarvik {

/// The service org.freedesktop.UPower with the devices that a test plugs in.
class FakeUPower final : public QDBusVirtualObject {
public:
    explicit FakeUPower(const QDBusConnection& connection)
        : m_connection(connection)
    {
        m_connection.registerVirtualObject(root(), this, QDBusConnection::SubPath);
    }

    ~FakeUPower() override
    {
        stop();
        m_connection.unregisterObject(root());
    }

    void start() { m_connection.registerService(QStringLiteral("org.freedesktop.UPower")); }
    void stop() { m_connection.unregisterService(QStringLiteral("org.freedesktop.UPower")); }

    static QString pathOf(const QString& name) { return root() + QStringLiteral("/devices/") + name; }

    /// Changes a property of the manager and says so.
    void set(const QString& property, const QVariant& value)
    {
        manager[property] = value;
        announce(root(), QStringLiteral("org.freedesktop.UPower"), {{property, value}}, {});
    }

    /// Changes properties of a device and says so.
    void setDevice(const QString& name, const QVariantMap& properties)
    {
        devices[name].insert(properties);
        announce(pathOf(name), QStringLiteral("org.freedesktop.UPower.Device"), properties, {});
    }

    /// Changes a property of a device and says only that it has changed.
    void invalidate(const QString& name, const QString& property, const QVariant& value)
    {
        devices[name][property] = value;
        announce(pathOf(name), QStringLiteral("org.freedesktop.UPower.Device"), {}, {property});
    }

    void add(const QString& name, const QVariantMap& properties)
    {
        devices[name] = properties;
        signalDevice(QStringLiteral("DeviceAdded"), name);
    }

    void remove(const QString& name)
    {
        devices.remove(name);
        signalDevice(QStringLiteral("DeviceRemoved"), name);
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        ++calls;
        if (!answers) {
            unanswered << message;
            return true;
        }
        return connection.send(answerTo(message));
    }

    /// Answers everything that was left unanswered.
    void answerLate()
    {
        answers = true;
        for (const QDBusMessage& message : std::exchange(unanswered, {}))
            m_connection.send(answerTo(message));
    }

    QString introspect(const QString&) const override { return {}; }

    QVariantMap manager;
    QMap<QString, QVariantMap> devices;
    /// Whether calls are answered at all.
    bool answers = true;
    QList<QDBusMessage> unanswered;
    /// In place of the list of devices.
    QVariant enumeration;
    int calls = 0;

private:
    static QString root() { return QStringLiteral("/org/freedesktop/UPower"); }

    QDBusMessage answerTo(const QDBusMessage& message) const
    {
        if (message.member() == QStringLiteral("EnumerateDevices")) {
            QList<QDBusObjectPath> paths;
            for (auto device = devices.keyBegin(); device != devices.keyEnd(); ++device)
                paths << QDBusObjectPath{pathOf(*device)};
            return message.createReply(enumeration.isValid() ? enumeration : QVariant::fromValue(paths));
        }
        if (message.member() == QStringLiteral("GetAll")) {
            if (message.path() == root())
                return message.createReply(QVariant{manager});
            const QString name = message.path().section(u'/', -1);
            if (devices.contains(name))
                return message.createReply(QVariant{devices[name]});
        }
        return message.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("no such thing"));
    }

    void announce(
        const QString& path, const QString& interfaceName, const QVariantMap& changed, const QStringList& invalidated)
    {
        auto signal = QDBusMessage::createSignal(
            path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"));
        signal << interfaceName << changed << invalidated;
        m_connection.send(signal);
    }

    void signalDevice(const QString& member, const QString& name)
    {
        auto signal = QDBusMessage::createSignal(root(), QStringLiteral("org.freedesktop.UPower"), member);
        signal << QVariant::fromValue(QDBusObjectPath{pathOf(name)});
        m_connection.send(signal);
    }

    QDBusConnection m_connection;
};

} // namespace Tarvik
