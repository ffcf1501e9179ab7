// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QElapsedTimer>
#include <QPoint>
#include <QQmlEngine>
#include <QString>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>

class QQuickWindow;

namespace Tarvik {

class Appearance;
class CoordinatorMirror;
class LayerShell;
class PanelHost;
class SettingsMirror;

/// Tarvik's windows, each at most once. They are kept when they are closed, so that they open quickly the next time;
/// some time after the last one was closed the keeper is `finished`.
class WindowKeeper : public QObject {
    Q_OBJECT

public:
    /// What the windows show; must outlive the keeper.
    struct Models {
        CoordinatorMirror& coordinator;
        SettingsMirror& settings;
        Appearance& appearance;
    };

    WindowKeeper(const Models& models, const QDBusConnection& bus, std::chrono::milliseconds linger);
    ~WindowKeeper() override;

    /// See com.morvanta.TarvikUi.Windows1.xml.
    void showPanel(QPoint click, const QString& activationToken);
    void showSettings(const QString& activationToken);

Q_SIGNALS:
    /// No window has been open for a while.
    void finished();

private Q_SLOTS:
    void openSettings();

private:
    struct Click {
        QPoint point;
        QString activationToken;
    };

    bool isReady() const;
    void openWhenReady();
    void openPanel(const Click& click);
    bool createPanel();
    void panelVisibleChanged(bool visible);

    Models m_models;
    QDBusConnection m_bus;
    QQmlEngine m_engine;
    /// Null on other platforms.
    std::unique_ptr<LayerShell> m_layerShell;
    std::unique_ptr<QQuickWindow> m_panel;
    std::unique_ptr<PanelHost> m_panelHost;
    /// Waits until everything is known that the panel shows.
    std::optional<Click> m_wantedPanel;
    QElapsedTimer m_sinceFocusLoss;
    QTimer m_patience;
    QTimer m_linger;
};

} // namespace Tarvik
