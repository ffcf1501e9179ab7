// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "bus/BusAnswer.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <memory>
#include <vector>

namespace Tarvik {

class BusInterface;

/// Tarvik's object on the session bus, see TarvikWire: hands what arrives to its interfaces, and answers
/// org.freedesktop.DBus.Properties and Introspectable of the D-Bus specification for them. QtDBus would convert a value
/// to the type of the property that is set, so that any text would do for true; this object refuses.
class BusObject : public QDBusVirtualObject {
public:
    explicit BusObject(QDBusConnection bus);
    ~BusObject() override;

    /// Offers the interface, complete as it is.
    void add(std::unique_ptr<BusInterface> interface);

    /// The contracts of all interfaces, word for word.
    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    BusAnswer answer(const QDBusMessage& message) const;
    BusAnswer answerProperties(const QDBusMessage& message) const;
    BusInterface* find(const QString& interface) const;

    QDBusConnection m_bus;
    std::vector<std::unique_ptr<BusInterface>> m_interfaces;
};

} // namespace Tarvik
