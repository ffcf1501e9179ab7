// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/ScreenCover.h"

#include "ui/placement/LayerShell.h"

#include <QEnterEvent>
#include <QPlatformSurfaceEvent>
#include <QScreen>

#include <utility>

namespace Tarvik {

namespace {

/// Above the bars of the desktop and the windows, below the window that is being covered for.
const LayerSurface::Place everywhere{
    .layer = ZWLR_LAYER_SHELL_V1_LAYER_TOP,
    .edges = Qt::TopEdge | Qt::BottomEdge | Qt::LeftEdge | Qt::RightEdge,
    .avoidsBars = false,
};

QWindow& created(QWindow& window)
{
    window.setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    window.setGeometry(window.screen()->geometry());
    window.create();
    return window;
}

} // namespace

ScreenCover::ScreenCover(const LayerShell& shell, QScreen& screen)
    : QWindow(&screen)
    , m_surface(std::in_place, shell, created(*this), everywhere, QSize(0, 0))
    , m_viewport(wp_viewporter_get_viewport(shell.viewporter(), m_surface->surface()))
{
    // Qt draws nothing into a window that is never shown. A buffer as large as the screen would cost megabytes.
    connect(&*m_surface, &LayerSurface::configured, this, [this, &shell](QSize size) {
        if (std::exchange(m_covered, size) == size)
            return;
        // Qt has told the scale of the screen, of which a single pixel is no multiple.
        if (wl_surface_get_version(m_surface->surface()) >= WL_SURFACE_SET_BUFFER_SCALE_SINCE_VERSION)
            wl_surface_set_buffer_scale(m_surface->surface(), 1);
        wp_viewport_set_destination(m_viewport.get(), size.width(), size.height());
        wl_surface_attach(m_surface->surface(), shell.transparentPixel(), 0, 0);
        wl_surface_commit(m_surface->surface());
        static constexpr wl_callback_listener listener{.done = synchronised};
        m_sync = shell.sync();
        wl_callback_add_listener(m_sync.get(), &listener, this);
    });
    connect(&*m_surface, &LayerSurface::closed, this, &ScreenCover::pressed);
}

void ScreenCover::synchronised(void* self, wl_callback*, uint32_t)
{
    Q_EMIT static_cast<ScreenCover*>(self)->placed();
}

bool ScreenCover::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::PlatformSurface:
        // Also when the application quits and closes all windows. What has been made of the surface must go before it.
        if (static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType()
            == QPlatformSurfaceEvent::SurfaceAboutToBeDestroyed) {
            m_viewport.reset();
            m_surface.reset();
        }
        break;
    case QEvent::Enter:
        Q_EMIT entered(screen()->geometry().topLeft() + static_cast<QEnterEvent*>(event)->position().toPoint());
        break;
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
        Q_EMIT pressed();
        break;
    default:
        break;
    }
    return QWindow::event(event);
}

} // namespace Tarvik
