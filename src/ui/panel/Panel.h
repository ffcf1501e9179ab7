// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/placement/PanelHost.h"

#include <QDBusConnection>
#include <QElapsedTimer>
#include <QObject>
#include <QPoint>

#include <memory>

class QQmlEngine;
class QQuickWindow;

namespace Tarvik {

class Appearance;
class LayerShell;
class SettingsMirror;
class StatusMirror;

/// The panel's window, made when it is first opened and kept from then on.
class Panel : public QObject {
    Q_OBJECT

public:
    /// What the panel shows; must outlive it, as must the engine.
    struct Models {
        StatusMirror& status;
        SettingsMirror& settings;
        Appearance& appearance;
    };

    Panel(QQmlEngine& engine, const Models& models, const QDBusConnection& bus);
    ~Panel() override;

    bool isVisible() const;
    /// Closes the panel if it is in front. Also true when the click that is reported now has closed it already.
    bool closeByClick();
    /// See com.morvanta.TarvikUi.Windows1.xml.
    void open(const PanelHost::TrayPoint& tray, const QString& activationToken);
    /// See PanelHost; null as well before the panel was first opened.
    QPoint trayPoint() const { return m_host ? m_host->trayPoint() : QPoint(); }

Q_SIGNALS:
    void visibleChanged();
    void settingsWanted();

private:
    bool create();
    void forgetPointer();

    QQmlEngine& m_engine;
    Models m_models;
    QDBusConnection m_bus;
    /// Null on other platforms.
    std::unique_ptr<LayerShell> m_layerShell;
    std::unique_ptr<QQuickWindow> m_window;
    std::unique_ptr<PanelHost> m_host;
    QElapsedTimer m_sinceFocusLoss;
};

} // namespace Tarvik
