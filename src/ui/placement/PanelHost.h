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
    /// Shows the panel next to the click, a point as com.morvanta.TarvikUi.Windows1.xml tells it.
    virtual void open(QPoint click, const QString& activationToken) = 0;

protected:
    explicit PanelHost(QQuickWindow& panel);

    QQuickWindow& panel() const { return m_panel; }
    /// What of the window is its shadow.
    QMargins shadow() const;
    /// The window without its shadow.
    QSize surfaceSize() const;

private:
    QQuickWindow& m_panel;
};

} // namespace Tarvik
