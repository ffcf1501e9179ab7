// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <functional>

namespace Tarvik {

/// A subscription to signals on a bus, from construction to destruction.
class DBusSignal final : public QObject {
    Q_OBJECT

public:
    /// Which signals; an empty field stands for any, but one of interface and name is needed.
    struct Source {
        /// A unique name, such as BusNameWatch tells. With a well-known one QtDBus would ask the bus for its owner and
        /// wait for the answer, however long the bus takes.
        QString sender;
        QString path;
        QString interface;
        QString name;
        /// What the first arguments are, when they are texts.
        QStringList arguments;
    };

    /// `receiver` may destroy the subscription.
    DBusSignal(QDBusConnection bus, Source source, std::function<void(const QDBusMessage& signal)> receiver);
    ~DBusSignal() override;
    DBusSignal(const DBusSignal&) = delete;
    DBusSignal& operator=(const DBusSignal&) = delete;

private:
    Q_SLOT void receive(const QDBusMessage& signal);

    QDBusConnection m_bus;
    Source m_source;
    std::function<void(const QDBusMessage& signal)> m_receiver;
};

} // namespace Tarvik
