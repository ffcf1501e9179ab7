// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/settings/SettingsWindow.h"

#include "core/AgentCatalogue.h"
#include "core/Logging.h"
#include "ui/mirror/Appearance.h"
#include "ui/mirror/SettingsMirror.h"
#include "ui/mirror/StatusMirror.h"
#include "ui/placement/WindowActivation.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QIcon>
#include <QQmlComponent>
#include <QQuickWindow>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

/// For desktops that do not find it by the name of the desktop file.
QIcon applicationIcon(const QString& directory)
{
    QIcon icon;
    for (const int size : {48, 128})
        icon.addFile(u"%1/hicolor/%2x%2/apps/com.morvanta.Tarvik.png"_s.arg(directory).arg(size));
    return icon;
}

} // namespace

SettingsWindow::SettingsWindow(QQmlEngine& engine, Models models, const QDBusConnection& bus)
    : m_engine(engine)
    , m_models(std::move(models))
    , m_journal(bus)
    , m_hooks(bus)
    , m_updater(bus)
    , m_mirrors{&m_journal, &m_hooks, &m_updater}
{
    for (PropertyMirror* mirror : m_mirrors)
        connect(mirror, &PropertyMirror::connectedChanged, this, &SettingsWindow::showWhenReady);
}

SettingsWindow::~SettingsWindow()
{
    // An open window hides when it goes, when nothing is left to act on that.
    if (m_window)
        m_window->disconnect(this);
}

bool SettingsWindow::isVisible() const
{
    return m_window && m_window->isVisible();
}

void SettingsWindow::show(const QString& activationToken)
{
    // The agents' files change without anybody telling.
    if (!isVisible())
        m_hooks.refresh();
    m_wanted = activationToken;
    showWhenReady();
}

void SettingsWindow::showWhenReady()
{
    if (!m_wanted || !std::ranges::all_of(m_mirrors, &PropertyMirror::isConnected))
        return;
    const QString activationToken = *std::exchange(m_wanted, std::nullopt);
    if (!m_window && !create())
        return;
    m_window->setWindowStates(m_window->windowStates() & ~Qt::WindowMinimized);
    showAndActivate(*m_window, activationToken);
    m_window->raise();
}

bool SettingsWindow::create()
{
    QQmlComponent component(&m_engine, QUrl(u"qrc:/qt/qml/Tarvik/Settings/SettingsWindow.qml"_s));
    QObject* object = component.createWithInitialProperties({
        {u"agentCount"_s, AgentCatalogue::agents().size()},
        {u"appearance"_s, QVariant::fromValue<QObject*>(&m_models.appearance)},
        {u"hooks"_s, QVariant::fromValue<QObject*>(&m_hooks)},
        {u"journal"_s, QVariant::fromValue<QObject*>(&m_journal)},
        {u"settings"_s, QVariant::fromValue<QObject*>(&m_models.settings)},
        {u"status"_s, QVariant::fromValue<QObject*>(&m_models.status)},
        {u"updater"_s, QVariant::fromValue<QObject*>(&m_updater)},
    });
    m_window.reset(qobject_cast<QQuickWindow*>(object));
    if (!m_window) {
        qCWarning(logSystem, "The settings cannot be shown: %ls", qUtf16Printable(component.errorString()));
        return false;
    }
    m_window->setIcon(applicationIcon(m_models.iconDirectory));
    connect(m_window.get(), SIGNAL(applicationsWanted()), this, SLOT(listApplications()));
    connect(m_window.get(), SIGNAL(copyText(QString)), this, SLOT(copyText(QString)));
    connect(m_window.get(), &QWindow::visibleChanged, this, [this](bool visible) {
        if (!visible)
            forgetFocus(*m_window);
        Q_EMIT visibleChanged();
    });
    return true;
}

void SettingsWindow::listApplications()
{
    QVariantList rows;
    for (const AllowlistedApp& app : m_models.installedApplications())
        rows.append(QVariantMap{{u"bundleID"_s, app.bundleID}, {u"name"_s, app.name}});
    m_window->setProperty("applications", rows);
}

void SettingsWindow::copyText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

} // namespace Tarvik
