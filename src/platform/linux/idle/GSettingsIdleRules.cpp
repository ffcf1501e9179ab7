// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/idle/GSettingsIdleRules.h"

#include "platform/linux/gsettings/InstalledSettings.h"

namespace Tarvik::GSettingsIdleRules {

using namespace Qt::StringLiterals;
using std::chrono::minutes;
using std::chrono::seconds;

namespace {

using Value = Owned<GVariant, g_variant_unref>;

Value valueOf(const char* schema, const char* key)
{
    const auto settings = InstalledSettings::open(schema);
    const bool isThere = settings != nullptr && InstalledSettings::hasKey(settings.get(), key);
    return Value(isThere ? g_settings_get_value(settings.get(), key) : nullptr);
}

std::optional<int> numberOf(const char* schema, const char* key)
{
    const Value value = valueOf(schema, key);
    if (value == nullptr || g_variant_is_of_type(value.get(), G_VARIANT_TYPE_INT32) == FALSE)
        return {};
    return g_variant_get_int32(value.get());
}

std::optional<IdleSleepAction> actionOf(const char* schema, const char* key)
{
    const Value value = valueOf(schema, key);
    if (value == nullptr || g_variant_is_of_type(value.get(), G_VARIANT_TYPE_STRING) == FALSE)
        return {};
    const QLatin1StringView action(g_variant_get_string(value.get(), nullptr));
    if (action == "suspend"_L1)
        return IdleSleepAction::suspend;
    if (action == "hibernate"_L1)
        return IdleSleepAction::hibernate;
    // The others blank the screen, or ask.
    return action == "shutdown"_L1 || action == "logout"_L1 ? IdleSleepAction::other : IdleSleepAction::nothing;
}

/// Zero means never.
IdleSleepRule rule(const QString& service, std::optional<IdleSleepAction> action, std::optional<int> after)
{
    if (!action || !after)
        return {.service = service, .action = {}, .after = {}};
    if (*action == IdleSleepAction::nothing || *after <= 0)
        return {.service = service, .action = IdleSleepAction::nothing, .after = {}};
    return {.service = service, .action = action, .after = seconds(*after)};
}

IdleSleepRule settingsDaemon(const QString& service, const char* schema, bool isOnMains)
{
    return rule(service,
        actionOf(schema, isOnMains ? "sleep-inactive-ac-type" : "sleep-inactive-battery-type"),
        numberOf(schema, isOnMains ? "sleep-inactive-ac-timeout" : "sleep-inactive-battery-timeout"));
}

} // namespace

IdleSleepRule gnome(bool isOnMains, bool isVirtualMachine)
{
    const IdleSleepRule set = settingsDaemon(u"GNOME"_s, "org.gnome.settings-daemon.plugins.power", isOnMains);
    const bool sleeps = set.action == IdleSleepAction::suspend || set.action == IdleSleepAction::hibernate;
    return sleeps && isVirtualMachine ? rule(set.service, IdleSleepAction::nothing, 0) : set;
}

std::optional<bool> isVirtualMachine(QStringView commandLine)
{
    constexpr auto parameter = "gnome.is_vm="_L1;
    const qsizetype at = commandLine.indexOf(parameter);
    const QStringView value = at < 0 ? QStringView() : commandLine.sliced(at + parameter.size());
    if (value.startsWith(u'1'))
        return true;
    return value.startsWith(u'0') ? std::optional(false) : std::nullopt;
}

IdleSleepRule cinnamon(bool isOnMains)
{
    return settingsDaemon(u"Cinnamon"_s, "org.cinnamon.settings-daemon.plugins.power", isOnMains);
}

IdleSleepRule mate(bool isOnMains)
{
    constexpr auto schema = "org.mate.power-manager";
    // It starts to count when the session manager says that the session is idle.
    const auto idleDelay = numberOf("org.mate.session", "idle-delay");
    const auto more = numberOf(schema, isOnMains ? "sleep-computer-ac" : "sleep-computer-battery");
    std::optional<int> after;
    if (idleDelay && more)
        after = *idleDelay <= 0 || *more <= 0 ? 0 : static_cast<int>(seconds(minutes(*idleDelay)).count()) + *more;
    return rule(u"MATE"_s, actionOf(schema, isOnMains ? "action-sleep-type-ac" : "action-sleep-type-battery"), after);
}

} // namespace Tarvik::GSettingsIdleRules
