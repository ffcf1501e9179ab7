// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/BusDisplaySwitch.h"

#include "dbus/BusNames.h"
#include "dbus/DBusProperties.h"

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

QDBusMessage mutterMode(int mode)
{
    return DBusProperties::set(BusNames::mutterDisplayConfig,
        u"/org/gnome/Mutter/DisplayConfig"_s,
        BusNames::mutterDisplayConfig,
        u"PowerSaveMode"_s,
        mode);
}

} // namespace

BusDisplaySwitch::BusDisplaySwitch(QDBusConnection bus, QDBusMessage off, std::optional<QDBusMessage> on)
    : m_bus(std::move(bus))
    , m_off(std::move(off))
    , m_on(std::move(on))
{
}

BusDisplaySwitch::~BusDisplaySwitch()
{
    switchOn();
}

std::unique_ptr<BusDisplaySwitch> BusDisplaySwitch::gnomeScreenSaver(const QDBusConnection& sessionBus)
{
    auto off = QDBusMessage::createMethodCall(
        BusNames::gnomeScreenSaver, u"/org/gnome/ScreenSaver"_s, BusNames::gnomeScreenSaver, u"SetActive"_s);
    off.setArguments({true});
    return std::unique_ptr<BusDisplaySwitch>(new BusDisplaySwitch(sessionBus, off));
}

std::unique_ptr<BusDisplaySwitch> BusDisplaySwitch::mutterPowerSave(const QDBusConnection& sessionBus)
{
    constexpr int on = 0;
    constexpr int off = 3;
    return std::unique_ptr<BusDisplaySwitch>(new BusDisplaySwitch(sessionBus, mutterMode(off), mutterMode(on)));
}

std::unique_ptr<BusDisplaySwitch> BusDisplaySwitch::kdeShortcut(const QDBusConnection& sessionBus)
{
    auto off = QDBusMessage::createMethodCall(BusNames::kglobalaccel,
        u"/component/org_kde_powerdevil"_s,
        u"org.kde.kglobalaccel.Component"_s,
        u"invokeShortcut"_s);
    off.setArguments({u"Turn Off Screen"_s});
    return std::unique_ptr<BusDisplaySwitch>(new BusDisplaySwitch(sessionBus, off));
}

void BusDisplaySwitch::switchOff(Receiver done)
{
    m_isOff = true;
    m_call = callAsync(m_bus, m_off, [this, done = std::move(done)](const QDBusMessage& answer) {
        m_call.reset();
        const bool isDone = answer.type() == QDBusMessage::ReplyMessage;
        m_isOff = isDone;
        done(isDone ? QString() : answer.errorMessage());
    });
}

void BusDisplaySwitch::switchOn()
{
    m_call.reset();
    if (std::exchange(m_isOff, false) && m_on)
        m_bus.send(*m_on);
}

} // namespace Tarvik
