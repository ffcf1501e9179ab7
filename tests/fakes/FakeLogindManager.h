// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QVariantMap>

namespace Tarvik {

/// The properties of the service org.freedesktop.login1.
class FakeLogindManager final : public QDBusVirtualObject {
public:
    explicit FakeLogindManager(const QDBusConnection& connection)
        : m_connection(connection)
    {
        m_connection.registerVirtualObject(root(), this);
    }

    ~FakeLogindManager() override
    {
        stop();
        m_connection.unregisterObject(root());
    }

    void start() { m_connection.registerService(QStringLiteral("org.freedesktop.login1")); }
    void stop() { m_connection.unregisterService(QStringLiteral("org.freedesktop.login1")); }

    /// Says that a property has changed, as only newer releases do for the lid.
    void announce(const QString& property)
    {
        auto signal = QDBusMessage::createSignal(
            root(), QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"));
        signal << QStringLiteral("org.freedesktop.login1.Manager") << QVariantMap{{property, properties[property]}}
               << QStringList{};
        m_connection.send(signal);
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        ++calls;
        if (!answers) {
            message.setDelayedReply(true);
            return true;
        }
        const QString property = message.arguments().value(1).toString();
        if (message.member() != QStringLiteral("Get") || !properties.contains(property))
            return connection.send(message.createErrorReply(QDBusError::UnknownProperty, QStringLiteral("unknown")));
        return connection.send(message.createReply(QVariant::fromValue(QDBusVariant{properties[property]})));
    }

    QString introspect(const QString&) const override { return {}; }

    QVariantMap properties;
    /// Whether calls are answered at all.
    bool answers = true;
    int calls = 0;

private:
    static QString root() { return QStringLiteral("/org/freedesktop/login1"); }

    QDBusConnection m_connection;
};

} // namespace Tarvik
