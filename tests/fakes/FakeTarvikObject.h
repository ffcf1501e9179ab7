// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/contracts/TarvikWire.h"
#include "fakes/FakeDBusService.h"

#include <QDBusVariant>
#include <QMap>
#include <QStringList>
#include <QVariantMap>

namespace Tarvik {

/// A Tarvik on the bus that has the properties that it is given and does nothing of what it is asked for.
class FakeTarvikObject final : public FakeDBusService {
public:
    explicit FakeTarvikObject(const QDBusConnection& bus)
        : FakeDBusService(bus, QString::fromLatin1(TarvikWire::busName), QString::fromLatin1(TarvikWire::objectPath))
    {
        handler = [this](const QDBusMessage& call) { return answer(call); };
    }

    void change(const char* interface, const QVariantMap& values)
    {
        m_properties[QString::fromLatin1(interface)].insert(values);
        emitSignal(propertiesInterface,
            QStringLiteral("PropertiesChanged"),
            {QString::fromLatin1(interface), values, QStringList()});
    }

    /// The methods that were called, and the properties that were set as "NAME=VALUE".
    QStringList asked;

private:
    const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

    QDBusMessage answer(const QDBusMessage& call)
    {
        const QVariantList arguments = call.arguments();
        if (call.interface() != propertiesInterface) {
            asked.append(call.member());
        } else if (call.member() == QStringLiteral("Set")) {
            const QString name = arguments[1].toString();
            const QVariant value = arguments[2].value<QDBusVariant>().variant();
            asked.append(name + u'=' + value.toString());
            change(arguments[0].toString().toLatin1().constData(), {{name, value}});
        } else {
            return call.createReply(m_properties.value(arguments[0].toString()));
        }
        return call.createReply();
    }

    QMap<QString, QVariantMap> m_properties;
};

} // namespace Tarvik
