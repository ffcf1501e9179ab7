// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QMargins>
#include <QObject>
#include <QPoint>
#include <QSize>

#include <memory>

class QQuickWindow;

namespace Tarvik {

class LayerShell;

/// How one kind of desktop shows the panel: which kind of window it is, and where it goes. The
/// panel must outlive its host.
class PanelHost : public QObject {
    Q_OBJECT

public:
    /// The one for the platform that the application runs on. `shell` is null where there is none.
    static std::unique_ptr<PanelHost> create(QQuickWindow& panel, const LayerShell* shell, const QDBusConnection& bus);

    /// Whether transparent parts of the panel's window show what is below.
    virtual bool isComposited() const = 0;
    /// Whether the panel goes, like a menu, when the user turns to something else.
    virtual bool isTransient() const { return true; }
    /// Where a tray item is, in what com.morvanta.TarvikUi.Windows1.xml counts in; null when nobody knows.
    struct TrayPoint {
        QPoint point;
        /// The user has just clicked there, so that the pointer may know better. Otherwise the pointer is anywhere.
        bool isClicked = true;
    };

    /// Shows the panel next to the tray item.
    virtual void open(const TrayPoint& tray, const QString& activationToken) = 0;
    /// Where the tray item was found the last time; null when it was not.
    QPoint trayPoint() const { return m_trayPoint; }

protected:
    explicit PanelHost(QQuickWindow& panel);

    QQuickWindow& panel() const { return m_panel; }
    /// What of the window is its shadow.
    QMargins shadow() const;
    /// The window without its shadow.
    QSize surfaceSize() const;

    void setTrayPoint(QPoint point) { m_trayPoint = point; }

private:
    QQuickWindow& m_panel;
    QPoint m_trayPoint;
};

} // namespace Tarvik
