// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "app/LinuxPlatform.h"

#include "lidclosed/TarvikHelper.h"
#include "platform/linux/FreedesktopNotifications.h"
#include "platform/linux/InstalledAppBundle.h"
#include "platform/linux/JsonFileSettingsStore.h"
#include "platform/linux/ProcessUiLauncher.h"
#include "platform/linux/PsProcessTable.h"
#include "platform/linux/SessionBusHookChannel.h"
#include "platform/linux/applications/DesktopRunningApplications.h"
#include "platform/linux/applications/XdgAutostartLoginItem.h"
#include "platform/linux/assertions/DesktopPowerAssertions.h"
#include "platform/linux/assertions/X11ScreenSaverInhibitor.h"
#include "platform/linux/helper/SystemdHelperService.h"
#include "platform/linux/history/SystemSleepHistory.h"
#include "platform/linux/hotkeys/DesktopHotKeys.h"
#include "platform/linux/idle/DesktopIdleSleep.h"
#include "platform/linux/locks/DesktopSleepLocks.h"
#include "platform/linux/power/FallbackPowerSources.h"
#include "platform/linux/power/LogindLidSensor.h"
#include "platform/linux/power/SysfsPowerSources.h"
#include "platform/linux/power/UPowerPowerSources.h"
#include "platform/linux/programs/InstalledProgramFile.h"
#include "platform/linux/screenlock/DesktopScreenLock.h"
#include "platform/linux/session/DisplaySessionLifetime.h"
#include "platform/linux/sleep/DesktopDisplayPower.h"
#include "platform/linux/sleep/LogindSleepControl.h"
#include "platform/linux/thermal/MachineThermalState.h"
#include "platform/linux/tray/StatusNotifierTrayItem.h"
#include "platform/linux/updates/PackageKitUpdateDriver.h"
#include "platform/linux/x11/X11Connection.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

QString configHome()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

QStringList systemConfigDirectories()
{
    return QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation).mid(1);
}

bool isWayland()
{
    return qEnvironmentVariableIsSet("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland";
}

/// Null when DISPLAY names none.
std::shared_ptr<X11Connection> x11Connection(Clock& clock)
{
    const QByteArray display = qgetenv("DISPLAY");
    return display.isEmpty() ? nullptr : X11Connection::open(display, clock);
}

DesktopPowerAssertions::X11ScreenSaver x11ScreenSaver(const std::shared_ptr<X11Connection>& x11, Clock& clock)
{
    if (isWayland() || x11 == nullptr)
        return {};
    return [x11, &clock] { return std::make_unique<X11ScreenSaverInhibitor>(x11, clock); };
}

/// Empty when WAYLAND_DISPLAY names none.
QString waylandSocket()
{
    const QString name = qEnvironmentVariable("WAYLAND_DISPLAY");
    return name.isEmpty() ? QString() : QDir(qEnvironmentVariable("XDG_RUNTIME_DIR")).absoluteFilePath(name);
}

/// The application's icon as other programs find it: by its name where that is installed, else by its place.
QString findableIcon(const AppBundle& bundle)
{
    const QString file = u"/hicolor/scalable/apps/"_s + bundle.identifier + u".svg"_s;
    if (!QStandardPaths::locate(QStandardPaths::GenericDataLocation, u"icons"_s + file).isEmpty())
        return bundle.identifier;
    return QUrl::fromLocalFile(bundle.iconDirectory() + file).toString(QUrl::FullyEncoded);
}

QString kernelCommandLine()
{
    QFile file(u"/proc/cmdline"_s);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

ProgramLabels::Applications applicationNames(DesktopFiles& files)
{
    return [&files](const QStringList& names) {
        const auto id = files.idForWindow(names);
        return id ? files.name(*id) : std::nullopt;
    };
}

std::unique_ptr<HelperService> systemdHelperService(const QDBusConnection& systemBus, const AppBundle& bundle)
{
    const QString label = TarvikHelper::machLabel(bundle.identifier);
    return std::make_unique<SystemdHelperService>(
        systemBus, label, SystemdHelperService::places(bundle.location, label));
}

} // namespace

std::unique_ptr<LoginItem> LinuxPlatform::makeLoginItem()
{
    return std::make_unique<XdgAutostartLoginItem>(configHome(),
        systemConfigDirectories(),
        QStringList{QCoreApplication::applicationFilePath(), QString::fromLatin1(atLoginOption)});
}

LinuxPlatform::LinuxPlatform(const QDBusConnection& systemBus, const QDBusConnection& sessionBus)
    : bundle(installedAppBundle())
    , home(QDir::homePath())
    , x11(x11Connection(clock))
    , settingsStore(std::make_unique<JsonFileSettingsStore>(configHome() + u"/tarvik/settings.json"_s))
    , powerSources(std::make_unique<FallbackPowerSources>(std::make_unique<UPowerPowerSources>(systemBus),
          [this] { return std::make_unique<SysfsPowerSources>(clock); }))
    , lidSensor(std::make_unique<LogindLidSensor>(systemBus, clock))
    , thermalState(std::make_unique<MachineThermalState>(clock, systemBus))
    , processTable(std::make_unique<PsProcessTable>(clock))
    , runningApplications(std::make_unique<DesktopRunningApplications>(sessionBus,
          DesktopRunningApplications::Displays{.x11 = x11, .waylandSocket = waylandSocket()},
          desktopFiles,
          clock))
    , hookChannel(std::make_unique<SessionBusHookChannel>(sessionBus))
    , powerAssertions(std::make_unique<DesktopPowerAssertions>(
          systemBus, sessionBus, qEnvironmentVariable("XDG_CURRENT_DESKTOP"), x11ScreenSaver(x11, clock), clock))
    , loginItem(makeLoginItem())
    , userNotifications(std::make_unique<FreedesktopNotifications>(sessionBus, findableIcon(bundle)))
    , hotKeys(
          std::make_unique<DesktopHotKeys>(sessionBus, DesktopHotKeys::Display{.x11 = x11, .isWayland = isWayland()}))
    , screenLock(std::make_unique<DesktopScreenLock>(systemBus, sessionBus, clock))
    , helperService(systemdHelperService(systemBus, bundle))
    , sleepControl(std::make_unique<LogindSleepControl>(systemBus, sessionBus, clock))
    , displayPower(std::make_unique<DesktopDisplayPower>(sessionBus,
          DesktopDisplayPower::Display{.x11 = isWayland() ? nullptr : x11, .waylandSocket = waylandSocket()},
          clock))
    , trayItem(std::make_unique<StatusNotifierTrayItem>(sessionBus, bundle.iconDirectory(), clock))
    , uiLauncher(std::make_unique<ProcessUiLauncher>(bundle.uiPath()))
    , updateDriver(std::make_unique<PackageKitUpdateDriver>(systemBus, QCoreApplication::applicationFilePath(), clock))
    , programFile(std::make_unique<InstalledProgramFile>(InstalledProgramFile::Paths{.running = u"/proc/self/exe"_s,
          .installed = QCoreApplication::applicationFilePath(),
          .others = {bundle.uiPath(), bundle.toolPath()}}))
    , sessionLifetime(std::make_unique<DisplaySessionLifetime>(
          DisplaySessionLifetime::Display{.x11 = x11, .waylandSocket = waylandSocket()}, systemBus, clock))
    , sleepLocks(std::make_unique<DesktopSleepLocks>(systemBus,
          sessionBus,
          applicationNames(desktopFiles),
          LockReading::Desktop{.isWayland = isWayland(), .processes = OwnProcesses::names},
          clock))
    , idleSleep(std::make_unique<DesktopIdleSleep>(systemBus,
          sessionBus,
          IdleReading::Desktop{.plasmaRelease = qEnvironmentVariableIntValue("KDE_SESSION_VERSION"),
              .configDirectories = QStringList{configHome()} + systemConfigDirectories(),
              .commandLine = kernelCommandLine(),
              .processes = OwnProcesses::names},
          clock))
    , sleepHistory(std::make_unique<SystemSleepHistory>(systemBus, clock, SystemSleepHistory::Journal{}))
{
}

} // namespace Tarvik
