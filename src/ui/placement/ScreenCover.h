// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/placement/LayerSurface.h"

#include <QSize>
#include <QWindow>

#include <viewporter-client-protocol.h>

#include <optional>

namespace Tarvik {

/// An invisible window over all of a screen, bars too. Only a window under the pointer learns on Wayland where the
/// pointer is and whether it is pressed.
class ScreenCover : public QWindow {
    Q_OBJECT

public:
    ScreenCover(const LayerShell& shell, QScreen& screen);

Q_SIGNALS:
    /// The compositor has the cover. If the pointer is on it, the compositor is about to say so.
    void placed();
    /// The pointer is on the screen, at this point of it.
    void entered(QPoint point);
    void pressed();

protected:
    bool event(QEvent* event) override;

private:
    static void synchronised(void* self, wl_callback* callback, uint32_t serial);

    std::optional<LayerSurface> m_surface;
    WaylandObject<wp_viewport> m_viewport;
    QSize m_covered;
    WaylandObject<wl_callback> m_sync;
};

} // namespace Tarvik
