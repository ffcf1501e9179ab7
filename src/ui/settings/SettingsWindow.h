// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/AllowlistedApp.h"
#include "ui/mirror/HooksMirror.h"
#include "ui/mirror/JournalMirror.h"
#include "ui/mirror/UpdaterMirror.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>

class QQmlEngine;
class QQuickWindow;

namespace Tarvik {

class Appearance;
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
        Appearance& appearance;
        std::function<QList<AllowlistedApp>()> installedApplications;
        /// Where the theme "hicolor" with the application's icon is.
        QString iconDirectory;
    };

    SettingsWindow(QQmlEngine& engine, Models models, const QDBusConnection& bus);
    ~SettingsWindow() override;

    bool isVisible() const;
    /// Once everything is known that the window shows; one that is open comes to the front.
    void show(const QString& activationToken);

Q_SIGNALS:
    void visibleChanged();

private Q_SLOTS:
    void listApplications();
    void copyText(const QString& text);

private:
    void showWhenReady();
    bool create();

    QQmlEngine& m_engine;
    Models m_models;
    JournalMirror m_journal;
    HooksMirror m_hooks;
    UpdaterMirror m_updater;
    std::array<PropertyMirror*, 3> m_mirrors;
    std::unique_ptr<QQuickWindow> m_window;
    /// The activation token of a window that is wanted but not shown yet.
    std::optional<QString> m_wanted;
};

} // namespace Tarvik
