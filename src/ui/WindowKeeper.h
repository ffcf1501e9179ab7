// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/CopiedText.h"
#include "ui/mirror/ApplicationChoice.h"
#include "ui/onboarding/OnboardingController.h"
#include "ui/panel/Panel.h"

#include <QDBusConnection>
#include <QPoint>
#include <QQmlEngine>
#include <QString>
#include <QTimer>
#include <QUrl>

#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <utility>

namespace Tarvik {

class SettingsWindow;

/// Tarvik's windows, each at most once. They are kept when they are closed, so that they open quickly the next time;
/// some time after the last one was closed, and when what was copied from them does not need this process any more, the
/// keeper is `finished`.
class WindowKeeper : public QObject {
    Q_OBJECT

public:
    /// What the windows show; must outlive the keeper.
    struct Models {
        StatusMirror& status;
        SettingsMirror& settings;
        LidClosedMirror& lidClosed;
        Appearance& appearance;
        ApplicationChoice::Sources applications;
        /// Where the theme "hicolor" with the application's icon is.
        QString iconDirectory;
        /// See AgentRequest.
        QUrl apiAddress{};
    };

    WindowKeeper(Models models, const QDBusConnection& bus, std::chrono::milliseconds linger);
    ~WindowKeeper() override;

    /// See com.morvanta.TarvikUi.Windows1.xml.
    void showPanel(QPoint click, const QString& activationToken);
    void showPanelAtTray(QPoint lastClick, const QString& activationToken);
    void showSettings(const QString& activationToken);
    void showOnboarding(const QString& activationToken);
    void showRestartAlert(const QString& activationToken);
    void showHelperApproval(const QString& activationToken);

Q_SIGNALS:
    /// See com.morvanta.TarvikUi.Windows1.xml.
    void panelOpened(QPoint tray);
    void panelClosed();
    /// No window has been open for a while, and nothing would be lost.
    void finished();

private:
    struct WantedPanel {
        PanelHost::TrayPoint tray;
        QString activationToken;
    };

    KeptWindow::Content alert(const QString& name, QVariantMap properties = {}) const;
    bool isReady() const;
    bool isAnyVisible() const;
    void want(KeptWindow& window, const QString& activationToken);
    void openWhenReady();
    void openSettings(const QString& activationToken);
    void followVisibility();
    void finishWhenUnneeded();

    Models m_models;
    QDBusConnection m_bus;
    QQmlEngine m_engine;
    Panel m_panel;
    std::unique_ptr<SettingsWindow> m_settings;
    OnboardingController m_onboarding;
    KeptWindow m_restartAlert;
    KeptWindow m_helperApproval;
    std::array<KeptWindow*, 3> m_lidClosedWindows;
    /// Wait until everything is known that all windows show.
    std::optional<WantedPanel> m_wantedPanel;
    std::optional<QString> m_wantedSettings;
    /// With their activation tokens. These wait for what they alone show, too.
    QList<std::pair<KeptWindow*, QString>> m_wantedLidClosedWindows;
    QTimer m_patience;
    QTimer m_linger;
    CopiedText m_copied;
};

} // namespace Tarvik
