// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/BusInterfaces.h"

#include "bus/BusInterface.h"
#include "bus/StatusObject.h"
#include "bus/UiWire.h"
#include "core/AppSettings.h"
#include "engine/AwakeCoordinator.h"
#include "hooks/HookConfig.h"
#include "platform/StatusWire.h"

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik::BusInterfaces {

namespace {

constexpr int longestSessionMinutes = 366 * 24 * 60;

QStringList installedIds(const QString& home)
{
    const QSet<QString> installed = HookConfig::installedIds(home);
    QStringList ids;
    for (const HookSpec& spec : HookSpec::all) {
        const QString id = QString::fromUtf8(spec.id.data(), static_cast<qsizetype>(spec.id.size()));
        if (installed.contains(id))
            ids.append(id);
    }
    return ids;
}

BusAnswer edit(const QString& id, const std::function<bool(const HookSpec& spec)>& change)
{
    const HookSpec* spec = HookSpec::find(id.toStdString());
    if (spec == nullptr)
        return BusAnswer::invalidArguments(u"There are no hooks for an agent \"%1\"."_s.arg(id));
    return {.values = {change(*spec)}};
}

} // namespace

std::unique_ptr<BusInterface> application(
    std::function<void(const QString& activationToken)> activate, const QDBusConnection& bus)
{
    auto result = std::make_unique<BusInterface>("org.freedesktop.Application", bus);
    const auto show = [activate = std::move(activate)](const QVariantMap& platformData) {
        activate(platformData.value(u"activation-token"_s).toString());
    };
    // Tarvik opens no files and has no actions.
    result->addMethod(u"Activate"_s, show);
    result->addMethod(u"Open"_s, [show](const QStringList&, const QVariantMap& platformData) { show(platformData); });
    result->addMethod(u"ActivateAction"_s,
        [show](const QString&, const QVariantList&, const QVariantMap& platformData) { show(platformData); });
    return result;
}

std::unique_ptr<BusInterface> status(StatusObject& status, const QDBusConnection& bus)
{
    auto result = std::make_unique<BusInterface>(StatusWire::interfaceName, bus);
    const auto leases = QString::fromLatin1(StatusWire::leasesProperty);
    result->addProperties(status);
    result->announceWithoutValue(leases);
    QObject::connect(&status, &StatusObject::leasesChanged, result.get(), [interface = result.get(), leases] {
        interface->invalidateSoon(leases);
    });
    return result;
}

std::unique_ptr<BusInterface> coordinator(
    AwakeCoordinator& coordinator, CoordinatorActions actions, const QDBusConnection& bus)
{
    auto result = std::make_unique<BusInterface>(UiWire::coordinatorInterface, bus);
    result->addProperties(coordinator);
    result->addProperty(u"isTimedSessionActive"_s, [&coordinator] { return coordinator.isTimedSessionActive(); });
    result->addProperty(u"timedSessionEnd"_s, [&coordinator] {
        const auto end = coordinator.timedSessionEnd();
        return end ? end->time_since_epoch().count() : 0;
    });
    // A session also ends when its time has come.
    QObject::connect(&coordinator, &AwakeCoordinator::evaluated, result.get(), &BusInterface::announceSoon);
    QObject::connect(
        &coordinator, &AwakeCoordinator::timedSessionEndChanged, result.get(), &BusInterface::announceSoon);
    result->addMethod(u"SetTimedSession"_s, [&coordinator](int minutes) {
        if (minutes > longestSessionMinutes)
            return BusAnswer::invalidArguments(u"A timed session lasts a year at most."_s);
        coordinator.setTimedSession(minutes > 0 ? std::optional(minutes) : std::nullopt);
        return BusAnswer();
    });
    result->addMethod(u"LockScreen"_s, std::move(actions.lockScreen));
    result->addMethod(u"Quit"_s, std::move(actions.quit));
    return result;
}

std::unique_ptr<BusInterface> settings(AppSettings& settings, SettingsActions actions, const QDBusConnection& bus)
{
    auto result = std::make_unique<BusInterface>(UiWire::settingsInterface, bus);
    result->addProperties(settings);
    result->addProperty(
        u"launchAtLogin"_s, [&settings] { return settings.launchAtLogin(); }, std::move(actions.setLaunchAtLogin));
    result->addProperty(
        u"clamshellEnabled"_s,
        [&settings] { return settings.clamshellEnabled(); },
        std::move(actions.setClamshellEnabled));
    result->addProperty(
        u"batteryThreshold"_s,
        [&settings] { return settings.batteryThreshold(); },
        [&settings](int percent) {
            if (percent < 0 || percent > 100)
                return BusAnswer::invalidArguments(u"A battery level is a percentage from 0 to 100."_s);
            settings.setBatteryThreshold(percent);
            return BusAnswer();
        });
    return result;
}

std::unique_ptr<BusInterface> hooks(HookPaths paths, const QDBusConnection& bus)
{
    auto result = std::make_unique<BusInterface>(UiWire::hooksInterface, bus);
    result->addMethod(u"InstalledIds"_s, [home = paths.home] { return installedIds(home); });
    result->addMethod(u"Install"_s, [paths](const QString& id) {
        return edit(id, [&](const HookSpec& spec) { return HookConfig::install(spec, paths.home, paths.tool); });
    });
    result->addMethod(u"Uninstall"_s, [paths](const QString& id) {
        return edit(id, [&](const HookSpec& spec) { return HookConfig::uninstall(spec, paths.home); });
    });
    return result;
}

} // namespace Tarvik::BusInterfaces
