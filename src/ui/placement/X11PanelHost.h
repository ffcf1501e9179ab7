// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/placement/PanelHost.h"
#include "ui/placement/X11RootClicks.h"

#include <QPointer>
#include <QScreen>

#include <optional>

namespace Tarvik {

/// On X11, and through Xwayland: the window is put where it belongs, and is gone when another one gets the focus
/// or the root window is clicked.
class X11PanelHost : public PanelHost {
    Q_OBJECT

public:
    explicit X11PanelHost(QQuickWindow& panel);

    bool isComposited() const override;
    /// The point is in physical pixels.
    void open(const TrayPoint& tray, const QString& activationToken) override;

private:
    void locate(const TrayPoint& tray);
    bool locateByPointer(const TrayPoint& tray);
    bool locateByPoint(QPoint point);
    void comeFrom(QScreen& screen, QPoint logical);
    void place();
    void insistOnPosition();

    /// Where the panel comes from, in logical pixels, and the screen that this is on.
    QPoint m_click;
    QPointer<QScreen> m_screen;
    QPoint m_position;
    int m_insistence = 0;
    /// The window manager has taken the open window over.
    bool m_isFramed = false;
    /// While the panel is open.
    std::optional<X11RootClicks> m_rootClicks;
};

} // namespace Tarvik
