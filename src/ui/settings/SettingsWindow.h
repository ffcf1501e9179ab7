// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/mirror/ApplicationChoice.h"
#include "ui/mirror/HooksMirror.h"
#include "ui/mirror/JournalMirror.h"
#include "ui/mirror/UpdaterMirror.h"
#include "ui/placement/KeptWindow.h"
#include "ui/request/AgentRequest.h"

#include <QUrl>

#include <array>
#include <optional>

namespace Tarvik {

class Appearance;
class LidClosedMirror;
class SettingsMirror;
class StatusMirror;

/// The window of the settings with what only it shows of Tarvik.
class SettingsWindow : public QObject {
    Q_OBJECT

public:
    /// What others show as well; must outlive the window, as must the engine.
    struct Models {
        SettingsMirror& settings;
        StatusMirror& status;
        LidClosedMirror& lidClosed;
        Appearance& appearance;
        ApplicationChoice::Sources applications;
        /// Where the theme "hicolor" with the application's icon is.
        QString iconDirectory;
        /// See AgentRequest.
        QUrl apiAddress{};
    };

    SettingsWindow(QQmlEngine& engine, Models models, const QDBusConnection& bus);

    bool isVisible() const { return m_window.isVisible(); }
    /// Once everything is known that the window shows; one that is open comes to the front.
    void show(const QString& activationToken);

Q_SIGNALS:
    void visibleChanged();

private Q_SLOTS:
    void copyText(const QString& text);

private:
    void showWhenReady();

    Models m_models;
    JournalMirror m_journal;
    HooksMirror m_hooks;
    ApplicationChoice m_applications;
    UpdaterMirror m_updater;
    AgentRequest m_agentRequest;
    std::array<PropertyMirror*, 4> m_mirrors;
    KeptWindow m_window;
    /// The activation token of a window that is wanted but not shown yet.
    std::optional<QString> m_wanted;
};

} // namespace Tarvik
