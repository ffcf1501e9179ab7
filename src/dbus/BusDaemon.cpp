// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "dbus/BusDaemon.h"

namespace Tarvik::BusDaemon {

using namespace Qt::StringLiterals;

QDBusMessage call(const QString& method, const QVariantList& arguments)
{
    const auto name = u"org.freedesktop.DBus"_s;
    auto message = QDBusMessage::createMethodCall(name, u"/org/freedesktop/DBus"_s, name, method);
    message.setArguments(arguments);
    return message;
}

QString ownerIn(const QDBusMessage& answer)
{
    const bool isName = answer.type() == QDBusMessage::ReplyMessage && answer.signature() == "s"_L1;
    return isName ? answer.arguments().constFirst().toString() : QString();
}

DBusSignal::Source lossOfConnection()
{
    return {.sender = {},
        .path = u"/org/freedesktop/DBus/Local"_s,
        .interface = u"org.freedesktop.DBus.Local"_s,
        .name = u"Disconnected"_s,
        .arguments = {}};
}

} // namespace Tarvik::BusDaemon
