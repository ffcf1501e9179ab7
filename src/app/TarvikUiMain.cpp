// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "app/LogSink.h"
#include "core/Translation.h"
#include "dbus/contracts/UiWire.h"
#include "platform/linux/InstalledAppBundle.h"
#include "platform/linux/applications/InstalledApplications.h"
#include "ui/WindowKeeper.h"
#include "ui/WindowsAdaptor.h"
#include "ui/mirror/Appearance.h"
#include "ui/mirror/LidClosedMirror.h"
#include "ui/mirror/SettingsMirror.h"
#include "ui/mirror/StatusMirror.h"
#include "ui/placement/LayerShell.h"
#include "ui/placement/X11Scale.h"
#include "ui/placement/X11Settings.h"

#include <QDBusConnection>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>
#include <QQuickWindow>
#include <QUrl>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto linger = 60s;

/// Before the application object. On Wayland a client may place its windows by a layer shell only; where there is none,
/// it may through Xwayland.
void choosePlatform()
{
    bool isOrdinary = false;
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        const bool isPlaced = Tarvik::LayerShell::isOffered();
        const bool hasXwayland = qEnvironmentVariableIsSet("DISPLAY");
        isOrdinary = !isPlaced && !hasXwayland;
        qputenv("QT_QPA_PLATFORM", isPlaced || isOrdinary ? "wayland;xcb" : "xcb");
    }
    // A window with this hint is left for the layer shell to place.
    qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
    // In software nothing needs the driver libraries that the buffer integration would load, except the title bar that
    // Qt draws where the compositor draws none.
    if (!isOrdinary && !qEnvironmentVariableIsSet("QT_WAYLAND_CLIENT_BUFFER_INTEGRATION"))
        qputenv("QT_WAYLAND_CLIENT_BUFFER_INTEGRATION", "none");
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

/// Before the application object.
void chooseScale()
{
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY") || qEnvironmentVariableIsSet("QT_SCALE_FACTOR"))
        return;
    if (const int factor = Tarvik::X11Scale::missingFactor(qgetenv("DISPLAY")); factor > 1)
        qputenv("QT_SCALE_FACTOR", QByteArray::number(factor));
}

/// A desktop that tells of its dark theme to GTK only would leave the windows light where the portal says nothing.
void choosePalette()
{
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        return;
    if (Tarvik::X11Settings::isThemeDark(Tarvik::X11Settings::read(qgetenv("DISPLAY"))))
        QGuiApplication::setPalette(QPalette(Qt::black));
}

/// A desktop that names a font of its own gets it; the last resort of the font configuration is no such choice.
void chooseFont()
{
    QFont font = QGuiApplication::font();
    const bool isChosen = !font.family().startsWith("Sans"_L1, Qt::CaseInsensitive);
    if (isChosen || !QFontDatabase::hasFamily(u"Inter"_s))
        return;
    font.setFamily(u"Inter"_s);
    QGuiApplication::setFont(font);
}

} // namespace

int main(int argc, char** argv)
{
    Tarvik::installLogSink();
    choosePlatform();
    chooseScale();
    QGuiApplication application(argc, argv);
    const Tarvik::Translation translation;
    QGuiApplication::setDesktopFileName(u"com.morvanta.Tarvik"_s);
    QGuiApplication::setApplicationName(u"Tarvik"_s);
    const Tarvik::AppBundle bundle = Tarvik::installedAppBundle();
    QGuiApplication::setApplicationVersion(bundle.shortVersion);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    chooseFont();
    choosePalette();

    QDBusConnection bus = QDBusConnection::sessionBus();
    QObject root;
    auto* windows = new Tarvik::WindowsAdaptor(root);
    bus.registerObject(QString::fromLatin1(Tarvik::UiWire::objectPath), &root, QDBusConnection::ExportAdaptors);
    if (!bus.registerService(QString::fromLatin1(Tarvik::UiWire::busName))) {
        // Another process shows the windows already.
        return 0;
    }

    Tarvik::StatusMirror status(bus);
    Tarvik::SettingsMirror settings(bus);
    Tarvik::LidClosedMirror lidClosed(bus);
    Tarvik::Appearance appearance(bus);
    Tarvik::WindowKeeper keeper({status,
                                    settings,
                                    lidClosed,
                                    appearance,
                                    {Tarvik::installedApplications, Tarvik::applicationOfFile},
                                    bundle.iconDirectory(),
                                    QUrl(QStringLiteral(TARVIK_API_ADDRESS))},
        bus,
        linger);
    windows->onShowPanel = [&](int x, int y, const QString& token) { keeper.showPanel({x, y}, token); };
    windows->onShowPanelAtTray = [&](int x, int y, const QString& token) { keeper.showPanelAtTray({x, y}, token); };
    windows->onShowSettings = [&](const QString& token) { keeper.showSettings(token); };
    windows->onShowOnboarding = [&](const QString& token) { keeper.showOnboarding(token); };
    windows->onShowRestartAlert = [&](const QString& token) { keeper.showRestartAlert(token); };
    windows->onShowHelperApproval = [&](const QString& token) { keeper.showHelperApproval(token); };
    QObject::connect(&keeper, &Tarvik::WindowKeeper::panelOpened, windows, [windows](QPoint tray) {
        Q_EMIT windows->PanelOpened(tray.x(), tray.y());
    });
    QObject::connect(&keeper, &Tarvik::WindowKeeper::panelClosed, windows, &Tarvik::WindowsAdaptor::PanelClosed);
    QObject::connect(&keeper, &Tarvik::WindowKeeper::finished, &application, &QCoreApplication::quit);
    QObject::connect(&status, &Tarvik::PropertyMirror::lost, &application, &QCoreApplication::quit);
    return QGuiApplication::exec();
}
