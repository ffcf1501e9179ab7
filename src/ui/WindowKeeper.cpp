// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/WindowKeeper.h"

#include "bus/CoordinatorMirror.h"
#include "bus/SettingsMirror.h"
#include "core/Logging.h"
#include "ui/Appearance.h"
#include "ui/IconProvider.h"
#include "ui/LayerShell.h"
#include "ui/PanelHost.h"
#include "ui/ShadowProvider.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>

#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tarvik {

namespace {

/// The portal may have to be started; the panel does not wait for that long.
constexpr auto patience = 200ms;
/// A click on the tray takes the focus from the panel before the tray reports it.
constexpr qint64 sameClickMilliseconds = 250;

/// The panel offers it only once there is one.
constexpr bool hasSettingsWindow = false;

/// Lays out what would otherwise be laid out with the first frame, so that the window has its size before it is shown.
void layOut(QQuickItem& item)
{
    for (QQuickItem* child : item.childItems())
        layOut(*child);
    item.ensurePolished();
}

} // namespace

WindowKeeper::WindowKeeper(const Models& models, const QDBusConnection& bus, std::chrono::milliseconds linger)
    : m_models(models)
    , m_bus(bus)
    , m_layerShell(LayerShell::ofApplication())
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

WindowKeeper::~WindowKeeper()
{
    // An open panel hides when it goes, when nothing is left to act on that.
    if (m_panel)
        m_panel->disconnect(this);
}

void WindowKeeper::showPanel(QPoint click, const QString& activationToken)
{
    const bool isInFront = m_panel && m_panel->isVisible() && (m_panel->isActive() || m_panelHost->isTransient());
    if (isInFront) {
        m_panel->close();
        return;
    }
    if (m_sinceFocusLoss.isValid() && !m_sinceFocusLoss.hasExpired(sameClickMilliseconds)) {
        m_sinceFocusLoss.invalidate();
        return;
    }
    m_wantedPanel = Click{click, activationToken};
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

void WindowKeeper::openPanel(const Click& click)
{
    if (!m_panel && !createPanel())
        return;
    m_panel->setProperty("isComposited", m_panelHost->isComposited());
    layOut(*m_panel->contentItem());
    m_panelHost->open(click.point, click.activationToken);
}

bool WindowKeeper::createPanel()
{
    QQmlComponent component(&m_engine, QUrl(u"qrc:/qt/qml/Tarvik/PanelWindow.qml"_s));
    QObject* object = component.createWithInitialProperties({
        {u"appearance"_s, QVariant::fromValue<QObject*>(&m_models.appearance)},
        {u"coordinator"_s, QVariant::fromValue<QObject*>(&m_models.coordinator)},
        {u"settings"_s, QVariant::fromValue<QObject*>(&m_models.settings)},
        {u"hasSettingsWindow"_s, hasSettingsWindow},
        {u"isComposited"_s, true},
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
    m_panelHost = PanelHost::create(*panel, m_layerShell.get(), m_bus);
    connect(panel, &QWindow::activeChanged, this, [this, panel] {
        if (panel->isActive() || !panel->isVisible() || !m_panelHost->isTransient())
            return;
        m_sinceFocusLoss.start();
        panel->close();
    });
    return true;
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
