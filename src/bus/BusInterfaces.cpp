// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/BusInterfaces.h"

#include "bus/BusInterface.h"
#include "bus/StatusDescription.h"
#include "bus/StatusObject.h"
#include "core/AppSettings.h"
#include "dbus/contracts/ModelTypes.h"
#include "dbus/contracts/TarvikWire.h"
#include "engine/AwakeCoordinator.h"
#include "hooks/HookFiles.h"
#include "hooks/LastHookEvents.h"
#include "journal/Journal.h"
#include "lidclosed/LidClosedMode.h"
#include "monitors/PowerMonitor.h"
#include "platform/RunningApplications.h"
#include "updates/Updater.h"
#include "why/WhyCollector.h"
#include "why/WhyDescription.h"
#include "why/WhyRules.h"

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik::BusInterfaces {

namespace {

constexpr int longestSessionMinutes = 366 * 24 * 60;

QStringList installedIds(HookFiles& files)
{
    const QSet<QString> installed = files.installedIds();
    QStringList ids;
    for (const HookSpec& spec : HookSpec::all) {
        const QString id = QString::fromUtf8(spec.id.data(), static_cast<qsizetype>(spec.id.size()));
        if (installed.contains(id))
            ids.append(id);
    }
    return ids;
}

QStringList idsOf(const RunningApplications& applications)
{
    QStringList ids;
    for (const RunningApplication& application : applications.list()) {
        if (!application.id.isEmpty() && !ids.contains(application.id))
            ids.append(application.id);
    }
    return ids;
}

QMap<QString, double> secondsOf(const QMap<QString, TimePoint>& times)
{
    QMap<QString, double> seconds;
    for (auto each = times.constBegin(); each != times.constEnd(); ++each)
        seconds.insert(each.key(), each->time_since_epoch().count());
    return seconds;
}

QList<JournalRow> rowsOf(const Journal& journal)
{
    QList<JournalRow> rows;
    for (const Journal::Entry& entry : journal.entries()) {
        rows.append({.id = entry.id.toString(QUuid::WithoutBraces),
            .at = entry.at.time_since_epoch().count(),
            .kind = journalKindName(entry.kind),
            .reason = entry.reason});
    }
    return rows;
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

std::unique_ptr<BusInterface> status(
    StatusObject& status, AwakeCoordinator& coordinator, std::function<void()> quit, const QDBusConnection& bus)
{
    auto result = std::make_unique<BusInterface>(TarvikWire::statusInterface, bus);
    const auto leases = u"Leases"_s;
    result->addProperties(status);
    result->announceWithoutValue(leases);
    QObject::connect(&status, &StatusObject::leasesChanged, result.get(), [interface = result.get(), leases] {
        interface->invalidateSoon(leases);
    });
    result->addMethod(QString::fromLatin1(TarvikWire::describeMethod), [&status](bool asJson) {
        return BusAnswer{
            .values = {asJson ? StatusDescription::json(status) : StatusDescription::text(status), status.isAwake()}};
    });
    result->addMethod(u"SetTimedSession"_s, [&coordinator](int minutes) {
        if (minutes > longestSessionMinutes)
            return BusAnswer::invalidArguments(u"A timed session lasts a year at most."_s);
        coordinator.setTimedSession(minutes > 0 ? std::optional(minutes) : std::nullopt);
        return BusAnswer();
    });
    result->addMethod(u"LockScreen"_s, [&coordinator] { coordinator.lockScreen(); });
    result->addMethod(u"Quit"_s, std::move(quit));
    return result;
}

std::unique_ptr<BusInterface> settings(
    AppSettings& settings, SettingsActions actions, const RunningApplications& running, const QDBusConnection& bus)
{
    auto result = std::make_unique<BusInterface>(TarvikWire::settingsInterface, bus);
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
    registerModelTypes();
    result->addProperty(u"allowlist"_s, [&settings] { return settings.allowlist(); });
    QObject::connect(&settings, &AppSettings::allowlistChanged, result.get(), &BusInterface::announceSoon);
    result->addMethod(u"AddToAllowlist"_s, [&settings](const QString& id, const QString& name) {
        if (id.isEmpty())
            return BusAnswer::invalidArguments(u"An application has an id."_s);
        settings.addToAllowlist(id, name);
        return BusAnswer();
    });
    result->addMethod(u"RemoveFromAllowlist"_s, [&settings](const QString& id) {
        QList<AllowlistedApp> rest = settings.allowlist();
        if (rest.removeIf([&id](const AllowlistedApp& app) { return app.bundleID == id; }) > 0)
            settings.setAllowlist(rest);
    });
    result->addMethod(u"RunningApplications"_s, [&running] { return idsOf(running); });
    return result;
}

std::unique_ptr<BusInterface> journal(Journal& journal, const QDBusConnection& bus)
{
    registerModelTypes();
    auto result = std::make_unique<BusInterface>(TarvikWire::journalInterface, bus);
    const auto entries = u"entries"_s;
    result->addProperty(entries, [&journal] { return rowsOf(journal); });
    result->announceWithoutValue(entries);
    QObject::connect(&journal, &Journal::entriesChanged, result.get(), [interface = result.get(), entries] {
        interface->invalidateSoon(entries);
    });
    result->addMethod(u"Clear"_s, [&journal] { journal.clear(); });
    result->addMethod(u"ExportText"_s, [&journal] { return journal.exportText(); });
    return result;
}

std::unique_ptr<BusInterface> hooks(HookFiles& files, LastHookEvents& events, const QDBusConnection& bus)
{
    registerModelTypes();
    auto result = std::make_unique<BusInterface>(TarvikWire::hooksInterface, bus);
    const auto property = u"installedIds"_s;
    const auto read = [&files] { return installedIds(files); };
    result->addProperty(property, read);
    result->announceWithoutValue(property);
    result->addMethod(u"InstalledIds"_s, read);
    result->addProperty(u"lastEvents"_s, [&events] { return secondsOf(events.times()); });
    QObject::connect(&events, &LastHookEvents::timesChanged, result.get(), &BusInterface::announceSoon);
    result->addMethod(u"Install"_s, [&files, &events, property, interface = result.get()](const QString& id) {
        interface->invalidateSoon(property);
        return edit(id, [&](const HookSpec& spec) {
            const bool isInstalled = files.install(spec);
            if (isInstalled)
                events.forget(id);
            return isInstalled;
        });
    });
    result->addMethod(u"Uninstall"_s, [&files, property, interface = result.get()](const QString& id) {
        interface->invalidateSoon(property);
        return edit(id, [&](const HookSpec& spec) { return files.uninstall(spec); });
    });
    return result;
}

std::unique_ptr<BusInterface> lidClosed(
    LidClosedMode& mode, const AwakeCoordinator& coordinator, const PowerMonitor& power, const QDBusConnection& bus)
{
    auto result = std::make_unique<BusInterface>(TarvikWire::lidClosedInterface, bus);
    result->addProperty(u"clamshellActive"_s, [&coordinator] { return coordinator.clamshellActive(); });
    result->addProperty(u"helperInstalled"_s, [&coordinator] { return coordinator.helperInstalled(); });
    result->addProperty(u"helperNeedsApproval"_s, [&coordinator] { return coordinator.helperNeedsApproval(); });
    result->addProperty(u"lastHelperError"_s, [&coordinator] { return coordinator.lastHelperError(); });
    result->addProperty(u"hasLid"_s, [&power] { return power.hasLid().value_or(true); });
    const auto announce = [&](const auto& source, auto signal) {
        QObject::connect(&source, signal, result.get(), &BusInterface::announceSoon);
    };
    announce(coordinator, &AwakeCoordinator::clamshellActiveChanged);
    announce(coordinator, &AwakeCoordinator::helperChanged);
    announce(power, &PowerMonitor::hasLidChanged);
    result->addMethod(u"InstallHelper"_s, [&mode] { mode.installHelper(); });
    result->addMethod(u"ReinstallHelper"_s, [&mode] { mode.reinstallHelper(); });
    result->addMethod(u"RefreshHelperStatus"_s, [&mode] { mode.refreshHelperStatus(); });
    result->addMethod(u"FinishOnboarding"_s, [&mode] { mode.finishOnboarding(); });
    result->addMethod(u"Relaunch"_s, [&mode] { mode.relaunch(); });
    return result;
}

std::unique_ptr<BusInterface> updater(Updater& updater, const QDBusConnection& bus)
{
    auto result = std::make_unique<BusInterface>(TarvikWire::updaterInterface, bus);
    result->addProperties(updater);
    result->addProperty(u"lastUpdateCheckDate"_s, [&updater] {
        const auto date = updater.lastUpdateCheckDate();
        return date ? date->time_since_epoch().count() : 0;
    });
    result->addMethod(u"Prepare"_s, [&updater] { updater.prepare(); });
    result->addMethod(u"CheckForUpdates"_s, [&updater] { updater.checkForUpdates(); });
    return result;
}

std::unique_ptr<BusInterface> why(WhyCollector& collector, const QDBusConnection& bus)
{
    auto result = std::make_unique<BusInterface>(TarvikWire::whyInterface, bus);
    result->addMethod(QString::fromLatin1(TarvikWire::explainMethod), [&collector](bool asJson) {
        return BusAnswer{.later = [&collector, asJson](auto tell) {
            collector.collect([asJson, tell = std::move(tell)](const WhyReport& report) {
                tell({.values = {asJson ? WhyDescription::json(report) : WhyDescription::text(report),
                          WhyRules::isKeptAwake(report)}});
            });
        }};
    });
    return result;
}

} // namespace Tarvik::BusInterfaces
