// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/contracts/TarvikWire.h"
#include "support/TestSupport.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QSignalSpy>

namespace Tarvik {

/// The side of the mirrors, on a connection that is not Tarvik's.
inline QDBusConnection mirrorConnection()
{
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("client"));
}

/// Waits until everything has arrived that either side had to say: messages of one sender keep their order, and the
/// announcements and the reading back take a round each.
inline void settle(const QDBusConnection& client)
{
    const auto ping = QDBusMessage::createMethodCall(QString::fromLatin1(TarvikWire::busName),
        QString::fromLatin1(TarvikWire::objectPath),
        QStringLiteral("org.freedesktop.DBus.Peer"),
        QStringLiteral("Ping"));
    for (int round = 0; round < 4; ++round) {
        QDBusPendingCallWatcher call(client.asyncCall(ping));
        QSignalSpy finished(&call, &QDBusPendingCallWatcher::finished);
        QVERIFY(finished.wait(patience));
    }
}

} // namespace Tarvik
