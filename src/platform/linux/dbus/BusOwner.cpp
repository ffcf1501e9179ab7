// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/dbus/BusOwner.h"

namespace Tarvik::BusOwner {

using namespace Qt::StringLiterals;

QDBusMessage question(const QString& name)
{
    auto message = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"GetNameOwner"_s);
    message << name;
    return message;
}

QString in(const QDBusMessage& answer)
{
    const bool isName = answer.type() == QDBusMessage::ReplyMessage && answer.signature() == "s"_L1;
    return isName ? answer.arguments().constFirst().toString() : QString();
}

} // namespace Tarvik::BusOwner
