// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/WaylandObject.h"

#include <viewporter-client-protocol.h>
#include <wayland-client.h>
#include <wlr-layer-shell-unstable-v1-client-protocol.h>

namespace Tarvik {

void WaylandDestroy::operator()(wl_buffer* buffer) const
{
    wl_buffer_destroy(buffer);
}

void WaylandDestroy::operator()(wl_event_queue* queue) const
{
    wl_event_queue_destroy(queue);
}

void WaylandDestroy::operator()(wl_registry* registry) const
{
    wl_registry_destroy(registry);
}

void WaylandDestroy::operator()(wl_shm* memory) const
{
    wl_shm_destroy(memory);
}

void WaylandDestroy::operator()(wl_shm_pool* pool) const
{
    wl_shm_pool_destroy(pool);
}

void WaylandDestroy::operator()(wp_viewport* viewport) const
{
    wp_viewport_destroy(viewport);
}

void WaylandDestroy::operator()(wp_viewporter* viewporter) const
{
    wp_viewporter_destroy(viewporter);
}

void WaylandDestroy::operator()(zwlr_layer_shell_v1* shell) const
{
    zwlr_layer_shell_v1_destroy(shell);
}

void WaylandDestroy::operator()(zwlr_layer_surface_v1* surface) const
{
    zwlr_layer_surface_v1_destroy(surface);
}

void WaylandDestroy::operator()(wl_callback* callback) const
{
    wl_callback_destroy(callback);
}

void WaylandDestroy::operator()(wl_display* display) const
{
    wl_display_disconnect(display);
}

} // namespace Tarvik
