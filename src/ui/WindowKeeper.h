// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QPoint>
#include <QQmlEngine>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>

class QQuickWindow;

namespace Tarvik {

class Appearance;
class CoordinatorMirror;
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

    WindowKeeper(const Models& models, std::chrono::milliseconds linger);
    ~WindowKeeper() override;

    /// `click` is in physical pixels; see com.morvanta.TarvikUi.Windows1.xml.
    void showPanel(QPoint click, const QString& activationToken);
    void showSettings(const QString& activationToken);

Q_SIGNALS:
    /// No window has been open for a while.
    void finished();

private Q_SLOTS:
    void openSettings();

private:
    bool isReady() const;
    void openWhenReady();
    void openPanel(QPoint click);
    bool createPanel();
    void placePanel();
    void insistOnPosition();
    void panelVisibleChanged(bool visible);

    Models m_models;
    QQmlEngine m_engine;
    std::unique_ptr<QQuickWindow> m_panel;
    /// Waits until everything is known that the panel shows.
    std::optional<QPoint> m_wantedPanel;
    QPoint m_click;
    QPoint m_position;
    int m_insistence = 0;
    QElapsedTimer m_sinceFocusLoss;
    QTimer m_patience;
    QTimer m_linger;
};

} // namespace Tarvik
