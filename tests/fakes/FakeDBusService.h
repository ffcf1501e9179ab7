// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <functional>

namespace Tarvik {

/// One object under a well-known name that answers every call with what `handler` makes of it. It is there from
/// `appear()` to `vanish()`. Give it a connection of its own: QtDBus short-cuts calls within one.
class FakeDBusService : public QDBusVirtualObject {
public:
    /// With `objects` set to SubPath, the handler also answers for the objects below.
    FakeDBusService(QDBusConnection bus,
        QString service,
        QString path,
        QDBusConnection::VirtualObjectRegisterOption objects = QDBusConnection::SingleNode)
        : m_bus(std::move(bus))
        , m_service(std::move(service))
        , m_path(std::move(path))
        , m_objects(objects)
    {
    }

    ~FakeDBusService() override { vanish(); }

    const QString& service() const { return m_service; }

    bool appear() { return m_bus.registerVirtualObject(m_path, this, m_objects) && m_bus.registerService(m_service); }

    void vanish()
    {
        m_bus.unregisterService(m_service);
        m_bus.unregisterObject(m_path);
    }

    void emitSignal(const QString& interface, const QString& name, const QVariantList& arguments)
    {
        auto message = QDBusMessage::createSignal(m_path, interface, name);
        message.setArguments(arguments);
        m_bus.send(message);
    }

    /// An invalid message leaves the call without an answer.
    std::function<QDBusMessage(const QDBusMessage& call)> handler;

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& call, const QDBusConnection&) override
    {
        const QDBusMessage answer = handler(call);
        if (answer.type() != QDBusMessage::InvalidMessage)
            m_bus.send(answer);
        return true;
    }

protected:
    QDBusConnection m_bus;

private:
    QString m_service;
    QString m_path;
    QDBusConnection::VirtualObjectRegisterOption m_objects;
};

} // namespace Tarvik
