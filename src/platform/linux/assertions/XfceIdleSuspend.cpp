// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/assertions/XfceIdleSuspend.h"

#include "dbus/BusNames.h"

#include <QDBusVariant>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto xfconfPath = u"/org/xfce/Xfconf"_s;
const auto xfconf = u"org.xfce.Xfconf"_s;
const auto channel = u"xfce4-power-manager"_s;
const std::array properties{
    u"/xfce4-power-manager/inactivity-on-ac"_s,
    u"/xfce4-power-manager/inactivity-on-battery"_s,
};

/// Of any sender: it is only a hint to ask.
DBusSignal::Source signalOfXfconf(const QString& name)
{
    return {{}, xfconfPath, xfconf, name, {channel}};
}

std::optional<uint> minutesOf(const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "v"_L1)
        return std::nullopt;
    bool isNumber = false;
    const uint minutes = answer.arguments().constFirst().value<QDBusVariant>().variant().toUInt(&isNumber);
    return isNumber ? std::optional(minutes) : std::nullopt;
}

} // namespace

XfceIdleSuspend::XfceIdleSuspend(QDBusConnection sessionBus)
    : m_bus(std::move(sessionBus))
    , m_changes(m_bus, signalOfXfconf(u"PropertyChanged"_s), [this](const QDBusMessage&) { readSettings(); })
    , m_removals(m_bus, signalOfXfconf(u"PropertyRemoved"_s), [this](const QDBusMessage&) { readSettings(); })
{
    readRelease();
    readSettings();
}

bool XfceIdleSuspend::suspends(std::optional<uint> minutes, const QVersionNumber& release)
{
    constexpr uint oldNever = 14;
    constexpr uint newNever = 0;
    if (!minutes)
        return false;
    if (release.isNull())
        return *minutes != oldNever && *minutes != newNever;
    return *minutes != (release < QVersionNumber(4, 19) ? oldNever : newNever);
}

void XfceIdleSuspend::readSettings()
{
    for (std::size_t i = 0; i < properties.size(); ++i) {
        auto message = QDBusMessage::createMethodCall(xfconf, xfconfPath, xfconf, u"GetProperty"_s);
        message.setArguments({channel, properties[i]});
        m_settingCalls[i] = callAsync(m_bus, message, [this, i](const QDBusMessage& answer) {
            m_settingCalls[i].reset();
            m_minutes[i] = minutesOf(answer);
            publish();
        });
    }
}

void XfceIdleSuspend::readRelease()
{
    const auto message = QDBusMessage::createMethodCall(
        BusNames::xfcePowerManager, u"/org/xfce/PowerManager"_s, u"org.xfce.Power.Manager"_s, u"GetInfo"_s);
    m_releaseCall = callAsync(m_bus, message, [this](const QDBusMessage& answer) {
        m_releaseCall.reset();
        // Name, version, vendor.
        if (answer.type() == QDBusMessage::ReplyMessage && answer.signature() == "sss"_L1)
            m_release = QVersionNumber::fromString(answer.arguments().at(1).toString());
        publish();
    });
}

void XfceIdleSuspend::publish()
{
    const bool isSet = suspends(m_minutes[0], m_release) || suspends(m_minutes[1], m_release);
    if (isSet == m_isSet)
        return;
    m_isSet = isSet;
    if (onChange)
        onChange();
}

} // namespace Tarvik
