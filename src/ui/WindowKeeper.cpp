// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/WindowKeeper.h"

#include "ui/design/ApplicationIconProvider.h"
#include "ui/design/IconProvider.h"
#include "ui/design/ShadowProvider.h"
#include "ui/mirror/Appearance.h"
#include "ui/mirror/LidClosedMirror.h"
#include "ui/mirror/SettingsMirror.h"
#include "ui/mirror/StatusMirror.h"
#include "ui/settings/SettingsWindow.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tarvik {

namespace {

/// The portal may have to be started; a window does not wait for that long.
constexpr auto patience = 200ms;

} // namespace

WindowKeeper::WindowKeeper(Models models, const QDBusConnection& bus, std::chrono::milliseconds linger)
    : m_models(std::move(models))
    , m_bus(bus)
    , m_panel(m_engine, {m_models.status, m_models.settings, m_models.appearance}, bus)
    , m_onboarding(m_engine, {m_models.lidClosed, m_models.appearance, m_models.iconDirectory})
    , m_restartAlert(
          m_engine, alert(u"RestartAlert"_s, {{u"lidClosed"_s, QVariant::fromValue<QObject*>(&m_models.lidClosed)}}))
    , m_helperApproval(m_engine, alert(u"HelperApproval"_s))
    , m_lidClosedWindows{&m_onboarding, &m_restartAlert, &m_helperApproval}
{
    m_engine.addImportPath(u"qrc:/qt/qml"_s);
    m_engine.addImageProvider(u"applications"_s, new ApplicationIconProvider);
    m_engine.addImageProvider(u"icons"_s, new IconProvider);
    m_engine.addImageProvider(u"shadows"_s, new ShadowProvider);
    m_patience.setSingleShot(true);
    m_linger.setSingleShot(true);
    m_linger.setInterval(linger);
    connect(&m_patience, &QTimer::timeout, this, &WindowKeeper::openWhenReady);
    connect(&m_linger, &QTimer::timeout, this, &WindowKeeper::finishWhenUnneeded);
    connect(&m_copied, &CopiedText::changed, this, &WindowKeeper::finishWhenUnneeded);
    connect(&m_models.appearance, &Appearance::known, this, &WindowKeeper::openWhenReady);
    connect(&m_models.status, &PropertyMirror::connectedChanged, this, &WindowKeeper::openWhenReady);
    connect(&m_models.settings, &PropertyMirror::connectedChanged, this, &WindowKeeper::openWhenReady);
    connect(&m_models.lidClosed, &PropertyMirror::connectedChanged, this, &WindowKeeper::openWhenReady);
    connect(&m_panel, &Panel::visibleChanged, this, [this] {
        followVisibility();
        if (m_panel.isVisible())
            Q_EMIT panelOpened(m_panel.trayPoint());
        else
            Q_EMIT panelClosed();
    });
    connect(&m_panel, &Panel::settingsWanted, this, [this] { showSettings({}); });
    for (KeptWindow* window : m_lidClosedWindows)
        connect(window, &KeptWindow::visibleChanged, this, &WindowKeeper::followVisibility);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* window) {
        if (window)
            m_models.lidClosed.refreshHelperStatus();
    });
    m_patience.start(patience);
    m_linger.start();
}

WindowKeeper::~WindowKeeper() = default;

void WindowKeeper::showPanel(QPoint click, const QString& activationToken)
{
    if (m_panel.closeByClick())
        return;
    m_wantedPanel = WantedPanel{{.point = click}, activationToken};
    openWhenReady();
}

void WindowKeeper::showPanelAtTray(QPoint lastClick, const QString& activationToken)
{
    m_wantedPanel = WantedPanel{{.point = lastClick, .isClicked = false}, activationToken};
    openWhenReady();
}

void WindowKeeper::showSettings(const QString& activationToken)
{
    m_wantedSettings = activationToken;
    openWhenReady();
}

void WindowKeeper::showOnboarding(const QString& activationToken)
{
    want(m_onboarding, activationToken);
}

void WindowKeeper::showRestartAlert(const QString& activationToken)
{
    want(m_restartAlert, activationToken);
}

void WindowKeeper::showHelperApproval(const QString& activationToken)
{
    want(m_helperApproval, activationToken);
}

KeptWindow::Content WindowKeeper::alert(const QString& name, QVariantMap properties) const
{
    properties[u"appearance"_s] = QVariant::fromValue<QObject*>(&m_models.appearance);
    return {.file = QUrl(u"qrc:/qt/qml/Tarvik/Alerts/%1.qml"_s.arg(name)),
        .properties = properties,
        .iconDirectory = m_models.iconDirectory,
        .place = KeptWindow::Place::centered};
}

void WindowKeeper::want(KeptWindow& window, const QString& activationToken)
{
    m_wantedLidClosedWindows.append({&window, activationToken});
    openWhenReady();
}

bool WindowKeeper::isReady() const
{
    return m_models.status.isConnected() && m_models.settings.isConnected()
        && (m_models.appearance.isKnown() || !m_patience.isActive());
}

bool WindowKeeper::isAnyVisible() const
{
    return m_panel.isVisible() || (m_settings && m_settings->isVisible())
        || std::ranges::any_of(m_lidClosedWindows, &KeptWindow::isVisible);
}

void WindowKeeper::openWhenReady()
{
    if (!isReady())
        return;
    if (const auto panel = std::exchange(m_wantedPanel, std::nullopt))
        m_panel.open(panel->tray, panel->activationToken);
    if (const auto activationToken = std::exchange(m_wantedSettings, std::nullopt))
        openSettings(*activationToken);
    if (!m_models.lidClosed.isConnected())
        return;
    for (const auto& [window, activationToken] : std::exchange(m_wantedLidClosedWindows, {}))
        window->show(activationToken);
}

void WindowKeeper::openSettings(const QString& activationToken)
{
    if (!m_settings) {
        m_settings = std::make_unique<SettingsWindow>(m_engine,
            SettingsWindow::Models{m_models.settings,
                m_models.status,
                m_models.lidClosed,
                m_models.appearance,
                m_models.applications,
                m_models.iconDirectory,
                m_models.apiAddress},
            m_bus);
        connect(m_settings.get(), &SettingsWindow::visibleChanged, this, &WindowKeeper::followVisibility);
    }
    m_settings->show(activationToken);
}

void WindowKeeper::followVisibility()
{
    if (isAnyVisible()) {
        m_linger.stop();
        return;
    }
    m_linger.start();
    // Nothing waits for this now; left alone, what scripts leave behind would pile up over hundreds of openings.
    m_engine.collectGarbage();
}

void WindowKeeper::finishWhenUnneeded()
{
    if (!isAnyVisible() && !m_linger.isActive() && !m_copied.needsThisProcess())
        Q_EMIT finished();
}

} // namespace Tarvik
