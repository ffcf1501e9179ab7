// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/idle/IdleReading.h"

#include "dbus/BusNames.h"
#include "dbus/DBusErrors.h"
#include "dbus/DBusProperties.h"
#include "platform/linux/idle/GSettingsIdleRules.h"
#include "platform/linux/idle/LogindIdleRule.h"
#include "platform/linux/idle/LxqtIdleRule.h"
#include "platform/linux/xfconf/XfcePowerSettings.h"

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto logindPath = u"/org/freedesktop/login1"_s;
const auto logindManager = u"org.freedesktop.login1.Manager"_s;

QStringList sessionNames()
{
    return {BusNames::kdePowerManager,
        BusNames::xfcePowerManager,
        BusNames::gnomePowerManager,
        BusNames::matePowerManager,
        BusNames::cinnamonPowerManager,
        BusNames::lxqtPowerManager};
}

/// Programs that run what their own configuration says after a time without activity.
QStringList idleDaemons()
{
    return {u"swayidle"_s, u"hypridle"_s, u"cosmic-idle"_s, u"xautolock"_s, u"xidlehook"_s};
}

QString textIn(const QDBusMessage& answer)
{
    const bool isText = answer.type() == QDBusMessage::ReplyMessage && answer.signature() == "s"_L1;
    return isText ? answer.arguments().constFirst().toString() : QString();
}

} // namespace

IdleReading::IdleReading(const QDBusConnection& systemBus,
    const QDBusConnection& sessionBus,
    Desktop desktop,
    Clock& clock,
    std::function<void(const QList<IdleSleepRule>& rules)> done)
    : m_desktop(std::move(desktop))
    , m_done(std::move(done))
    , m_round(
          {systemBus, {BusNames::logind, BusNames::systemd}},
          {sessionBus, sessionNames()},
          clock,
          [this] { ask(); },
          [this] { finish(); })
{
}

void IdleReading::ask()
{
    if (m_round.isThere(BusNames::logind))
        askLogind();
    else
        askDesktop();
}

void IdleReading::askLogind()
{
    m_round.askSystem(
        DBusProperties::getAll(BusNames::logind, logindPath, logindManager), [this](const QDBusMessage& answer) {
            m_manager = DBusProperties::propertiesIn(answer);
            const QVariant mains = m_manager.value_or(QVariantMap()).value(u"OnExternalPower"_s);
            m_isOnMains = DBusProperties::exactly<bool>(mains).value_or(true);
            askDesktop();
        });
}

void IdleReading::askDesktop()
{
    const bool isKde = m_round.isThere(BusNames::kdePowerManager);
    if (isKde || m_round.isThere(BusNames::gnomePowerManager)) {
        const auto virtualization = DBusProperties::get(BusNames::systemd,
            u"/org/freedesktop/systemd1"_s,
            u"org.freedesktop.systemd1.Manager"_s,
            u"Virtualization"_s);
        m_round.askSystem(virtualization, [this](const QDBusMessage& answer) {
            m_isVirtualMachine = !DBusProperties::propertyIn(answer).toString().isEmpty();
        });
    }
    if (isKde)
        askKde();
    if (m_round.isThere(BusNames::xfcePowerManager))
        askXfce();
}

void IdleReading::askKde()
{
    const auto profile = QDBusMessage::createMethodCall(BusNames::kdePowerManager,
        u"/org/kde/Solid/PowerManagement"_s,
        u"org.kde.Solid.PowerManagement"_s,
        u"currentProfile"_s);
    m_round.askSession(profile, [this](const QDBusMessage& answer) { m_kde.profile = textIn(answer); });
    const auto canSuspend
        = QDBusMessage::createMethodCall(BusNames::logind, logindPath, logindManager, u"CanSuspend"_s);
    m_round.askSystem(canSuspend, [this](const QDBusMessage& answer) {
        const QString can = textIn(answer);
        m_kde.canSuspend = !can.isEmpty() && can != "na"_L1 && can != "no"_L1;
    });
}

void IdleReading::askXfce()
{
    m_round.askSession(XfcePowerSettings::releaseQuestion(),
        [this](const QDBusMessage& answer) { m_xfce.release = XfcePowerSettings::releaseIn(answer); });
    m_round.askSession(XfcePowerSettings::question(u"presentation-mode"_s),
        [this](const QDBusMessage& answer) { m_xfce.presentationMode = XfcePowerSettings::valueIn(answer); });
    const QString source = m_isOnMains ? u"on-ac"_s : u"on-battery"_s;
    m_round.askSession(XfcePowerSettings::question(u"inactivity-sleep-mode-"_s + source),
        [this](const QDBusMessage& answer) { m_xfce.sleepMode = XfcePowerSettings::valueIn(answer); });
    m_round.askSession(XfcePowerSettings::question(u"inactivity-"_s + source), [this](const QDBusMessage& answer) {
        m_xfce.minutes = XfcePowerSettings::valueIn(answer);
        // That nothing is set is an error, too.
        m_isXfceKnown = answer.type() == QDBusMessage::ReplyMessage || !DBusErrors::isPeerGone(answer.errorName());
    });
}

void IdleReading::finish()
{
    QList<IdleSleepRule> rules;
    if (m_round.isThere(BusNames::logind))
        rules.append(LogindIdleRule::in(m_manager.value_or(QVariantMap())));
    rules += rulesOfDesktop();
    const QStringList running = m_desktop.processes();
    for (const QString& daemon : idleDaemons()) {
        if (running.contains(daemon))
            rules.append({.service = daemon, .action = {}, .after = {}});
    }
    // It may destroy this.
    const auto done = m_done;
    done(rules);
}

QList<IdleSleepRule> IdleReading::rulesOfDesktop() const
{
    QList<IdleSleepRule> rules;
    if (m_round.isThere(BusNames::kdePowerManager)) {
        KdeIdleRule::Facts facts = m_kde;
        facts.release = m_desktop.plasmaRelease;
        facts.isVirtualMachine = m_isVirtualMachine;
        rules.append(KdeIdleRule::read(facts, m_desktop.configDirectories));
    }
    if (m_round.isThere(BusNames::xfcePowerManager)) {
        rules.append(m_isXfceKnown ? XfceIdleRule::of(m_xfce, m_isOnMains)
                                   : IdleSleepRule{.service = u"XFCE"_s, .action = {}, .after = {}});
    }
    if (m_round.isThere(BusNames::gnomePowerManager))
        rules.append(GSettingsIdleRules::gnome(
            m_isOnMains, GSettingsIdleRules::isVirtualMachine(m_desktop.commandLine).value_or(m_isVirtualMachine)));
    if (m_round.isThere(BusNames::cinnamonPowerManager))
        rules.append(GSettingsIdleRules::cinnamon(m_isOnMains));
    if (m_round.isThere(BusNames::matePowerManager))
        rules.append(GSettingsIdleRules::mate(m_isOnMains));
    if (m_round.isThere(BusNames::lxqtPowerManager))
        rules.append(LxqtIdleRule::read(m_isOnMains));
    return rules;
}

} // namespace Tarvik
