// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/LidAction.h"

#include "dbus/BusNameWatch.h"
#include "dbus/BusNames.h"
#include "platform/linux/gsettings/InstalledSettings.h"
#include "platform/linux/xfconf/XfcePowerSettings.h"

#include <QSettings>

#include <chrono>

namespace Tarvik::LidAction {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// A daemon that hangs keeps nobody awake.
constexpr auto patience = 2s;

struct Key {
    const char* onMains;
    const char* onBattery;

    const char* now(bool isOnMains) const { return isOnMains ? onMains : onBattery; }
};

/// Suspend to RAM, to disk, both.
bool kdeSuspends(int action)
{
    return action == 1 || action == 2 || action == 4;
}

/// Suspend, hibernate, hybrid sleep.
bool xfceSuspends(uint action)
{
    return action == 1 || action == 2 || action == 5;
}

/// Hibernate, suspend.
bool lxqtSuspends(int action)
{
    return action == 1 || action == 4;
}

void askKde(DBusCalls& calls, const QDBusConnection& bus, const std::function<void(std::optional<bool>)>& done)
{
    const auto question = QDBusMessage::createMethodCall(BusNames::kdePowerManager,
        u"/org/kde/Solid/PowerManagement/Actions/HandleButtonEvents"_s,
        u"org.kde.Solid.PowerManagement.Actions.HandleButtonEvents"_s,
        u"lidAction"_s);
    const auto take = [done](const QDBusMessage& answer) {
        const bool isNumber = answer.type() == QDBusMessage::ReplyMessage && answer.signature() == "i"_L1;
        done(isNumber ? std::optional(kdeSuspends(answer.arguments().constFirst().toInt())) : std::nullopt);
    };
    calls.send(bus, question, take, {.patience = patience});
}

void askXfce(
    DBusCalls& calls, const QDBusConnection& bus, const char* key, const std::function<void(std::optional<bool>)>& done)
{
    constexpr uint lockScreen = 3;
    const auto question = XfcePowerSettings::question(QLatin1StringView(key));
    const auto take = [done](const QDBusMessage& answer) {
        const QVariant action = XfcePowerSettings::valueIn(answer);
        done(xfceSuspends(action.isValid() ? action.toUInt() : lockScreen));
    };
    calls.send(bus, question, take, {.patience = patience});
}

std::optional<bool> gsettingsSuspends(const char* schema, const char* key)
{
    const auto settings = InstalledSettings::open(schema);
    if (settings == nullptr || !InstalledSettings::hasKey(settings.get(), key))
        return {};
    const Owned<gchar, g_free> text(g_settings_get_string(settings.get(), key));
    const QLatin1StringView action(text.get());
    return action == "suspend"_L1 || action == "hibernate"_L1;
}

bool lxqtSettingsSuspend(const char* key)
{
    constexpr int nothing = -1;
    return lxqtSuspends(QSettings(u"lxqt"_s, u"lxqt-powermanagement"_s).value(QLatin1StringView(key), nothing).toInt());
}

} // namespace

void ask(DBusCalls& calls,
    const QDBusConnection& sessionBus,
    const BusNameWatch& sessionNames,
    bool isOnMains,
    const std::function<void(std::optional<bool> suspends)>& done)
{
    constexpr Key xfce{"lid-action-on-ac", "lid-action-on-battery"};
    constexpr Key mate{"button-lid-ac", "button-lid-battery"};
    constexpr Key cinnamon{"lid-close-ac-action", "lid-close-battery-action"};
    constexpr Key lxqt{"lidClosedAcAction", "lidClosedAction"};
    if (sessionNames.isOwned(BusNames::kdePowerManager))
        askKde(calls, sessionBus, done);
    else if (sessionNames.isOwned(BusNames::xfcePowerManager))
        askXfce(calls, sessionBus, xfce.now(isOnMains), done);
    else if (sessionNames.isOwned(BusNames::matePowerManager))
        done(gsettingsSuspends("org.mate.power-manager", mate.now(isOnMains)));
    else if (sessionNames.isOwned(BusNames::cinnamonPowerManager))
        done(gsettingsSuspends("org.cinnamon.settings-daemon.plugins.power", cinnamon.now(isOnMains)));
    else if (sessionNames.isOwned(BusNames::lxqtSession))
        done(lxqtSettingsSuspend(lxqt.now(isOnMains)));
    else
        done(std::nullopt);
}

} // namespace Tarvik::LidAction
