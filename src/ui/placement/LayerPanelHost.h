// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/placement/PanelHost.h"
#include "ui/placement/PlasmaStruts.h"

#include <QScopedPointer>
#include <QTimer>

#include <memory>
#include <vector>

class QScreen;

namespace Tarvik {

class LayerShell;
class LayerSurface;
class ScreenCover;

/// On Wayland compositors with a layer shell: the panel keeps to the edge of the screen that the pointer is at, has the
/// keyboard while it is open, and is gone with a click on anything else.
class LayerPanelHost : public PanelHost {
    Q_OBJECT

public:
    /// `shell` must outlive the host.
    LayerPanelHost(QQuickWindow& panel, const LayerShell& shell, const QDBusConnection& bus);
    ~LayerPanelHost() override;

    bool isComposited() const override { return true; }
    /// The point is in logical pixels and, of a click, counts only where there is no pointer: some trays count from
    /// their own corner.
    void open(const TrayPoint& tray, const QString& activationToken) override;

private:
    /// Later, because Qt walks over all windows when it closes them, and the covers go with the panel.
    using Cover = std::unique_ptr<ScreenCover, QScopedPointerDeleteLater>;

    void awaitPointer();
    void openAtPoint();
    void openAt(QScreen& screen, QPoint point);
    void place(QScreen& screen, QPoint point, const QMargins& reserved);
    void resize();
    void showCursor();
    void dismiss();
    void close();

    const LayerShell& m_shell;
    PlasmaStruts m_struts;
    TrayPoint m_tray;
    std::vector<Cover> m_covers;
    /// From when it is known where the panel goes until it is closed.
    bool m_isPlaced = false;
    std::unique_ptr<LayerSurface> m_surface;
    QTimer m_pointerPatience;
    /// Loading the theme of the cursor takes longer than all the rest; the first frame of the panel does not wait for
    /// it.
    bool m_hasCursor = false;
};

} // namespace Tarvik
