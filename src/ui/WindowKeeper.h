// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/AllowlistedApp.h"
#include "ui/panel/Panel.h"

#include <QDBusConnection>
#include <QPoint>
#include <QQmlEngine>
#include <QString>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace Tarvik {

class SettingsWindow;

/// Tarvik's windows, each at most once. They are kept when they are closed, so that they open quickly the next time;
/// some time after the last one was closed the keeper is `finished`.
class WindowKeeper : public QObject {
    Q_OBJECT

public:
    /// What the windows show; must outlive the keeper.
    struct Models {
        StatusMirror& status;
        SettingsMirror& settings;
        Appearance& appearance;
        /// Called when the user is about to choose one.
        std::function<QList<AllowlistedApp>()> installedApplications;
        /// Where the theme "hicolor" with the application's icon is.
        QString iconDirectory;
    };

    WindowKeeper(Models models, const QDBusConnection& bus, std::chrono::milliseconds linger);
    ~WindowKeeper() override;

    /// See com.morvanta.TarvikUi.Windows1.xml.
    void showPanel(QPoint click, const QString& activationToken);
    void showSettings(const QString& activationToken);

Q_SIGNALS:
    /// No window has been open for a while.
    void finished();

private:
    struct Click {
        QPoint point;
        QString activationToken;
    };

    bool isReady() const;
    void openWhenReady();
    void openSettings(const QString& activationToken);
    void followVisibility();

    Models m_models;
    QDBusConnection m_bus;
    QQmlEngine m_engine;
    Panel m_panel;
    std::unique_ptr<SettingsWindow> m_settings;
    /// Wait until everything is known that all windows show.
    std::optional<Click> m_wantedPanel;
    std::optional<QString> m_wantedSettings;
    QTimer m_patience;
    QTimer m_linger;
};

} // namespace Tarvik
