// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QHash>
#include <QStringList>

#include <functional>
#include <utility>

namespace Tarvik {

/// A service's object that answers each method as a test says, and not at all where it says nothing.
class FakeBusObject : public QDBusVirtualObject {
    Q_OBJECT

public:
    using Answer = std::function<QDBusMessage(const QDBusMessage& call)>;

    FakeBusObject(QDBusConnection bus, QString name, QString path)
        : m_bus(std::move(bus))
        , m_name(std::move(name))
        , m_path(std::move(path))
    {
        m_bus.registerVirtualObject(m_path, this);
    }
    ~FakeBusObject() override
    {
        vanish();
        m_bus.unregisterObject(m_path);
    }

    bool appear() { return m_bus.registerService(m_name); }
    void vanish() { m_bus.unregisterService(m_name); }

    void announce(const QString& interface, const QString& member)
    {
        m_bus.send(QDBusMessage::createSignal(m_path, interface, member));
    }

    /// By method.
    QHash<QString, Answer> answers;
    QList<QDBusMessage> calls;

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override
    {
        calls.append(call);
        if (const auto answer = answers.value(call.member()))
            bus.send(answer(call));
        return true;
    }

private:
    QDBusConnection m_bus;
    QString m_name;
    QString m_path;
};

} // namespace Tarvik
