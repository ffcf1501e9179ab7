// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/assertions/XfceIdleSuspend.h"

#include "platform/linux/xfconf/XfcePowerSettings.h"

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto xfconfPath = u"/org/xfce/Xfconf"_s;
const auto xfconf = u"org.xfce.Xfconf"_s;
const auto channel = u"xfce4-power-manager"_s;
const std::array properties{u"inactivity-on-ac"_s, u"inactivity-on-battery"_s};

/// Of any sender: it is only a hint to ask.
DBusSignal::Source signalOfXfconf(const QString& name)
{
    return {{}, xfconfPath, xfconf, name, {channel}};
}

std::optional<uint> minutesOf(const QDBusMessage& answer)
{
    bool isNumber = false;
    const uint minutes = XfcePowerSettings::valueIn(answer).toUInt(&isNumber);
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
    return minutes && !XfcePowerSettings::isNever(*minutes, release);
}

void XfceIdleSuspend::readSettings()
{
    for (std::size_t i = 0; i < properties.size(); ++i) {
        const auto question = XfcePowerSettings::question(properties[i]);
        m_settingCalls[i] = callAsync(m_bus, question, [this, i](const QDBusMessage& answer) {
            m_settingCalls[i].reset();
            m_minutes[i] = minutesOf(answer);
            publish();
        });
    }
}

void XfceIdleSuspend::readRelease()
{
    m_releaseCall = callAsync(m_bus, XfcePowerSettings::releaseQuestion(), [this](const QDBusMessage& answer) {
        m_releaseCall.reset();
        m_release = XfcePowerSettings::releaseIn(answer);
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
