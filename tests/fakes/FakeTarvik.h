// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/contracts/TarvikWire.h"
#include "fakes/FakeDBusService.h"

namespace Tarvik {

/// Something under Tarvik's name on the session bus that may say what Tarvik never would.
class FakeTarvik final : public FakeDBusService {
public:
    FakeTarvik()
        : FakeDBusService(
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("something like Tarvik")),
            QString::fromLatin1(TarvikWire::busName),
            QString::fromLatin1(TarvikWire::objectPath))
    {
        handler = [this](const QDBusMessage& call) { return call.createReply(QVariant(values)); };
    }

    /// Tells that properties have changed, see org.freedesktop.DBus.Properties.
    void announce(const char* interface, const QVariantMap& changed, const QStringList& invalidated = {})
    {
        emitSignal(QStringLiteral("org.freedesktop.DBus.Properties"),
            QStringLiteral("PropertiesChanged"),
            {QString::fromLatin1(interface), changed, invalidated});
    }

    /// The properties of every interface.
    QVariantMap values;
};

} // namespace Tarvik
