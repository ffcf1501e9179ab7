// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/xfconf/XfcePowerSettings.h"

#include "dbus/BusNames.h"

#include <QDBusVariant>

namespace Tarvik::XfcePowerSettings {

using namespace Qt::StringLiterals;

QDBusMessage question(const QString& property)
{
    auto message = QDBusMessage::createMethodCall(
        u"org.xfce.Xfconf"_s, u"/org/xfce/Xfconf"_s, u"org.xfce.Xfconf"_s, u"GetProperty"_s);
    message.setArguments({u"xfce4-power-manager"_s, u"/xfce4-power-manager/"_s + property});
    return message;
}

QVariant valueIn(const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "v"_L1)
        return {};
    return answer.arguments().constFirst().value<QDBusVariant>().variant();
}

QDBusMessage releaseQuestion()
{
    return QDBusMessage::createMethodCall(
        BusNames::xfcePowerManager, u"/org/xfce/PowerManager"_s, u"org.xfce.Power.Manager"_s, u"GetInfo"_s);
}

QVersionNumber releaseIn(const QDBusMessage& answer)
{
    // Name, version, vendor.
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "sss"_L1)
        return {};
    return QVersionNumber::fromString(answer.arguments().at(1).toString());
}

bool isNever(uint minutes, const QVersionNumber& release)
{
    constexpr uint oldNever = 14;
    constexpr uint newNever = 0;
    if (release.isNull())
        return minutes == oldNever || minutes == newNever;
    return minutes == (isOld(release) ? oldNever : newNever);
}

bool isOld(const QVersionNumber& release)
{
    return !release.isNull() && release < QVersionNumber(4, 19);
}

} // namespace Tarvik::XfcePowerSettings
