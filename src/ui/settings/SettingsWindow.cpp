// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/settings/SettingsWindow.h"

#include "core/AgentCatalogue.h"
#include "ui/mirror/Appearance.h"
#include "ui/mirror/LidClosedMirror.h"
#include "ui/mirror/SettingsMirror.h"
#include "ui/mirror/StatusMirror.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QQuickWindow>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

SettingsWindow::SettingsWindow(QQmlEngine& engine, Models models, const QDBusConnection& bus)
    : m_models(std::move(models))
    , m_journal(bus)
    , m_hooks(bus)
    , m_applications(m_models.applications, m_models.settings, bus)
    , m_updater(bus)
    , m_agentRequest(m_models.apiAddress)
    , m_mirrors{&m_journal, &m_hooks, &m_updater, &m_models.lidClosed}
    , m_window(engine,
          {.file = QUrl(u"qrc:/qt/qml/Tarvik/Settings/SettingsWindow.qml"_s),
              .properties = {
                  {u"agentCount"_s, AgentCatalogue::agents().size()},
                  {u"agentRequest"_s, QVariant::fromValue<QObject*>(&m_agentRequest)},
                  {u"appearance"_s, QVariant::fromValue<QObject*>(&m_models.appearance)},
                  {u"applications"_s, QVariant::fromValue<QObject*>(&m_applications)},
                  {u"hooks"_s, QVariant::fromValue<QObject*>(&m_hooks)},
                  {u"journal"_s, QVariant::fromValue<QObject*>(&m_journal)},
                  {u"lidClosed"_s, QVariant::fromValue<QObject*>(&m_models.lidClosed)},
                  {u"settings"_s, QVariant::fromValue<QObject*>(&m_models.settings)},
                  {u"status"_s, QVariant::fromValue<QObject*>(&m_models.status)},
                  {u"updater"_s, QVariant::fromValue<QObject*>(&m_updater)},
              },
              .iconDirectory = m_models.iconDirectory})
{
    for (PropertyMirror* mirror : m_mirrors)
        connect(mirror, &PropertyMirror::connectedChanged, this, &SettingsWindow::showWhenReady);
    connect(&m_window, &KeptWindow::visibleChanged, this, &SettingsWindow::visibleChanged);
    connect(&m_window, &KeptWindow::created, this, [this] {
        connect(m_window.window(), SIGNAL(copyText(QString)), this, SLOT(copyText(QString)));
    });
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
    m_window.show(*std::exchange(m_wanted, std::nullopt));
}

void SettingsWindow::copyText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

} // namespace Tarvik
