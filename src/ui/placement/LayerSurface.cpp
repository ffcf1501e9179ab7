// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/LayerSurface.h"

#include "ui/placement/LayerShell.h"

#include <QGuiApplication>
#include <QWindow>

#include <private/qhighdpiscaling_p.h>
#include <qpa/qplatformnativeinterface.h>

namespace Tarvik {

namespace {

/// By which compositors and their users' rules tell windows apart.
constexpr auto nameSpace = "tarvik";

wl_surface* surfaceOf(QWindow& window)
{
    return static_cast<wl_surface*>(
        QGuiApplication::platformNativeInterface()->nativeResourceForWindow("surface", &window));
}

wl_output* outputOf(const QWindow& window)
{
    return static_cast<wl_output*>(
        QGuiApplication::platformNativeInterface()->nativeResourceForScreen("output", window.screen()));
}

uint32_t anchorOf(Qt::Edges edges)
{
    uint32_t anchor = 0;
    if (edges.testFlag(Qt::TopEdge))
        anchor |= ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP;
    if (edges.testFlag(Qt::BottomEdge))
        anchor |= ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM;
    if (edges.testFlag(Qt::LeftEdge))
        anchor |= ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT;
    if (edges.testFlag(Qt::RightEdge))
        anchor |= ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;
    return anchor;
}

} // namespace

LayerSurface::LayerSurface(const LayerShell& shell, QWindow& window, const Place& place, QSize size)
    : m_factor(QHighDpiScaling::factor(&window))
    , m_surface(surfaceOf(window))
    , m_role(zwlr_layer_shell_v1_get_layer_surface(shell.shell(), m_surface, outputOf(window), place.layer, nameSpace))
{
    static constexpr zwlr_layer_surface_v1_listener listener{.configure = configure, .closed = close};
    zwlr_layer_surface_v1_add_listener(m_role.get(), &listener, this);
    const QMargins margins = (QMarginsF(place.margins) * m_factor).toMargins();
    zwlr_layer_surface_v1_set_anchor(m_role.get(), anchorOf(place.edges));
    zwlr_layer_surface_v1_set_margin(m_role.get(), margins.top(), margins.right(), margins.bottom(), margins.left());
    zwlr_layer_surface_v1_set_exclusive_zone(m_role.get(), place.avoidsBars ? 0 : -1);
    zwlr_layer_surface_v1_set_keyboard_interactivity(m_role.get(), place.keyboard == Keyboard::exclusive ? 1 : 0);
    resize(size);
    wl_surface_commit(m_surface);
}

void LayerSurface::resize(QSize size)
{
    const QSize scaled = (QSizeF(size) * m_factor).toSize();
    zwlr_layer_surface_v1_set_size(
        m_role.get(), static_cast<uint32_t>(scaled.width()), static_cast<uint32_t>(scaled.height()));
}

void LayerSurface::configure(
    void* self, zwlr_layer_surface_v1* surface, uint32_t serial, uint32_t width, uint32_t height)
{
    auto* that = static_cast<LayerSurface*>(self);
    zwlr_layer_surface_v1_ack_configure(surface, serial);
    Q_EMIT that->configured(QSize(static_cast<int>(width), static_cast<int>(height)));
}

void LayerSurface::close(void* self, zwlr_layer_surface_v1*)
{
    Q_EMIT static_cast<LayerSurface*>(self)->closed();
}

} // namespace Tarvik
