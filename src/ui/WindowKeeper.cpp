// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/WindowKeeper.h"

#include "bus/CoordinatorMirror.h"
#include "bus/SettingsMirror.h"
#include "core/Logging.h"
#include "ui/Appearance.h"
#include "ui/IconProvider.h"
#include "ui/PanelPlacement.h"
#include "ui/ShadowProvider.h"
#include "ui/X11Hints.h"

#include <QCursor>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQuickWindow>
#include <QScreen>

#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tarvik {

namespace {

/// The portal may have to be started; the panel does not wait for that long.
constexpr auto patience = 200ms;
/// How often a window that the window manager has moved is moved back.
constexpr int attempts = 3;
/// A click on the tray takes the focus from the panel before the tray reports it.
constexpr qint64 sameClickMilliseconds = 250;

/// The panel offers it only once there is one.
constexpr bool hasSettingsWindow = false;

PanelPlacement::Screen describe(const QScreen& screen)
{
    return {.geometry = screen.geometry(),
        .workArea = screen.availableGeometry(),
        .devicePixelRatio = screen.devicePixelRatio()};
}

} // namespace

WindowKeeper::WindowKeeper(const Models& models, std::chrono::milliseconds linger)
    : m_models(models)
{
    m_engine.addImportPath(u"qrc:/qt/qml"_s);
    m_engine.addImageProvider(u"icons"_s, new IconProvider);
    m_engine.addImageProvider(u"shadows"_s, new ShadowProvider);
    m_patience.setSingleShot(true);
    m_linger.setSingleShot(true);
    m_linger.setInterval(linger);
    connect(&m_patience, &QTimer::timeout, this, &WindowKeeper::openWhenReady);
    connect(&m_linger, &QTimer::timeout, this, &WindowKeeper::finished);
    connect(&models.appearance, &Appearance::known, this, &WindowKeeper::openWhenReady);
    connect(&models.coordinator, &PropertyMirror::connectedChanged, this, &WindowKeeper::openWhenReady);
    connect(&models.settings, &PropertyMirror::connectedChanged, this, &WindowKeeper::openWhenReady);
    m_patience.start(patience);
    m_linger.start();
}

WindowKeeper::~WindowKeeper() = default;

void WindowKeeper::showPanel(QPoint click, const QString& activationToken)
{
    if (m_panel && m_panel->isVisible()) {
        m_panel->close();
        return;
    }
    if (m_sinceFocusLoss.isValid() && !m_sinceFocusLoss.hasExpired(sameClickMilliseconds)) {
        m_sinceFocusLoss.invalidate();
        return;
    }
    if (!activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    m_wantedPanel = click;
    openWhenReady();
}

void WindowKeeper::showSettings(const QString&)
{
    qCWarning(logSystem, "The settings window is not there yet");
}

void WindowKeeper::openSettings()
{
    showSettings({});
}

bool WindowKeeper::isReady() const
{
    return m_models.coordinator.isConnected() && m_models.settings.isConnected()
        && (m_models.appearance.isKnown() || !m_patience.isActive());
}

void WindowKeeper::openWhenReady()
{
    if (m_wantedPanel && isReady())
        openPanel(*std::exchange(m_wantedPanel, std::nullopt));
}

void WindowKeeper::openPanel(QPoint click)
{
    if (!m_panel && !createPanel())
        return;
    m_panel->setProperty("isComposited", X11Hints::isComposited());
    m_click = click;
    m_insistence = attempts;
    placePanel();
    m_panel->create();
    X11Hints::skipTaskbar(*m_panel);
    m_panel->show();
    m_panel->requestActivate();
}

bool WindowKeeper::createPanel()
{
    QQmlComponent component(&m_engine, QUrl(u"qrc:/qt/qml/Tarvik/PanelWindow.qml"_s));
    QObject* object = component.createWithInitialProperties({
        {u"appearance"_s, QVariant::fromValue<QObject*>(&m_models.appearance)},
        {u"coordinator"_s, QVariant::fromValue<QObject*>(&m_models.coordinator)},
        {u"settings"_s, QVariant::fromValue<QObject*>(&m_models.settings)},
        {u"hasSettingsWindow"_s, hasSettingsWindow},
        {u"isComposited"_s, X11Hints::isComposited()},
    });
    m_panel.reset(qobject_cast<QQuickWindow*>(object));
    if (!m_panel) {
        qCWarning(logSystem, "The panel cannot be shown: %ls", qUtf16Printable(component.errorString()));
        return false;
    }
    QQuickWindow* panel = m_panel.get();
    connect(panel, SIGNAL(lockScreen()), &m_models.coordinator, SLOT(lockScreen()));
    connect(panel, SIGNAL(quit()), &m_models.coordinator, SLOT(quit()));
    connect(panel, SIGNAL(openSettings()), this, SLOT(openSettings()));
    connect(panel, &QWindow::visibleChanged, this, &WindowKeeper::panelVisibleChanged);
    connect(panel, &QWindow::heightChanged, this, &WindowKeeper::placePanel);
    connect(panel, &QWindow::widthChanged, this, &WindowKeeper::placePanel);
    connect(panel, &QWindow::xChanged, this, &WindowKeeper::insistOnPosition, Qt::QueuedConnection);
    connect(panel, &QWindow::yChanged, this, &WindowKeeper::insistOnPosition, Qt::QueuedConnection);
    connect(panel, &QWindow::activeChanged, this, [this, panel] {
        if (panel->isActive() || !panel->isVisible())
            return;
        m_sinceFocusLoss.start();
        panel->close();
    });
    return true;
}

void WindowKeeper::placePanel()
{
    // A tray that does not know where it was clicked says 0, 0, or counts from its own corner.
    const QScreen* screen = nullptr;
    for (const QScreen* candidate : QGuiApplication::screens()) {
        if (!m_click.isNull() && PanelPlacement::contains(describe(*candidate), m_click))
            screen = candidate;
    }
    QPoint click = screen != nullptr ? PanelPlacement::toLogical(describe(*screen), m_click) : QCursor::pos();
    if (screen == nullptr)
        screen = QGuiApplication::screenAt(click);
    if (screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return;
    const int shadow = m_panel->property("shadowExtent").toInt();
    const int shadowAbove = m_panel->property("shadowExtentAbove").toInt();
    const QSize surface = m_panel->size() - QSize(2 * shadow, shadowAbove + shadow);
    m_position = PanelPlacement::position(click, surface, screen->availableGeometry()) - QPoint(shadow, shadowAbove);
    m_panel->setPosition(m_position);
}

void WindowKeeper::insistOnPosition()
{
    // Some window managers move a new window so that all of it, the shadow too, keeps clear of the panels.
    if (m_panel->isVisible() && m_panel->position() != m_position && m_insistence-- > 0)
        m_panel->setPosition(m_position);
}

void WindowKeeper::panelVisibleChanged(bool visible)
{
    if (visible) {
        m_linger.stop();
        return;
    }
    m_linger.start();
    // Nobody tells a hidden window that the pointer has left it; what was under the pointer would stay highlighted.
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_panel.get(), &leave);
}

} // namespace Tarvik
