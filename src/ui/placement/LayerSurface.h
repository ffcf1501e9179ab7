// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/placement/WaylandObject.h"

#include <QMargins>
#include <QObject>
#include <QSize>

#include <wlr-layer-shell-unstable-v1-client-protocol.h>

class QWindow;

namespace Tarvik {

class LayerShell;

/// Gives a window, which has Qt::BypassWindowManagerHint and is created but not shown, its place on its screen, by
/// zwlr_layer_surface_v1. Must go before the window's surface goes, which is when the window is hidden.
class LayerSurface : public QObject {
    Q_OBJECT

public:
    enum class Keyboard { none, exclusive };

    struct Place {
        zwlr_layer_shell_v1_layer layer = ZWLR_LAYER_SHELL_V1_LAYER_TOP;
        /// The edges of the screen that the window keeps to. A window between two edges is as large as the space.
        Qt::Edges edges = {};
        /// To the edges that the window keeps to; negative ones reach beyond them.
        QMargins margins = {};
        /// Whether the window leaves the desktop's bars free.
        bool avoidsBars = true;
        Keyboard keyboard = Keyboard::none;
    };

    /// `size` is ignored where the window lies between two edges.
    LayerSurface(const LayerShell& shell, QWindow& window, const Place& place, QSize size);

    /// With the next frame of the window.
    void resize(QSize size);
    /// The window's own; belongs to the window.
    wl_surface* surface() const { return m_surface; }

Q_SIGNALS:
    /// From the first time on, the window may be drawn. `size` is in the compositor's units.
    void configured(QSize size);
    /// The compositor has taken the window away, for example because its screen is gone.
    void closed();

private:
    static void configure(void* self, zwlr_layer_surface_v1* surface, uint32_t serial, uint32_t width, uint32_t height);
    static void close(void* self, zwlr_layer_surface_v1* surface);

    /// The compositor's units in one of the window's.
    qreal m_factor;
    wl_surface* m_surface;
    WaylandObject<zwlr_layer_surface_v1> m_role;
};

} // namespace Tarvik
