// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QString>

#include <functional>
#include <memory>

namespace Tarvik {

class AppSettings;
class AwakeCoordinator;
class BusInterface;
class HookFiles;
class Journal;
class LastHookEvents;
class LidClosedMode;
class PowerMonitor;
class RunningApplications;
class StatusObject;
class Updater;
class WhyCollector;

} // namespace Tarvik

/// The model's objects as interfaces of a BusObject; the XML files are the contracts. What is passed in must outlive
/// the interface.
namespace Tarvik::BusInterfaces {

/// org.freedesktop.Application of the Desktop Entry Specification: a launcher, or a second start of the application,
/// asks the running one to show itself. `activate` gets "activation-token" where the caller has one.
std::unique_ptr<BusInterface> application(
    std::function<void(const QString& activationToken)> activate, const QDBusConnection& bus);

std::unique_ptr<BusInterface> status(
    StatusObject& status, AwakeCoordinator& coordinator, std::function<void()> quit, const QDBusConnection& bus);

/// What two of the settings take in place of being stored.
struct SettingsActions {
    std::function<void(bool on)> setLaunchAtLogin;
    std::function<void(bool on)> setClamshellEnabled;
};

std::unique_ptr<BusInterface> settings(
    AppSettings& settings, SettingsActions actions, const RunningApplications& running, const QDBusConnection& bus);

std::unique_ptr<BusInterface> journal(Journal& journal, const QDBusConnection& bus);

std::unique_ptr<BusInterface> hooks(HookFiles& files, LastHookEvents& events, const QDBusConnection& bus);

std::unique_ptr<BusInterface> lidClosed(
    LidClosedMode& mode, const AwakeCoordinator& coordinator, const PowerMonitor& power, const QDBusConnection& bus);

std::unique_ptr<BusInterface> updater(Updater& updater, const QDBusConnection& bus);

std::unique_ptr<BusInterface> why(WhyCollector& collector, const QDBusConnection& bus);

} // namespace Tarvik::BusInterfaces
