// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/WaylandObject.h"

#include <viewporter-client-protocol.h>
#include <wayland-client.h>
#include <wlr-layer-shell-unstable-v1-client-protocol.h>

namespace Tarvik::WaylandObjects {

void destroy(wl_buffer* buffer)
{
    wl_buffer_destroy(buffer);
}

void destroy(wl_event_queue* queue)
{
    wl_event_queue_destroy(queue);
}

void destroy(wl_registry* registry)
{
    wl_registry_destroy(registry);
}

void destroy(wl_shm* memory)
{
    wl_shm_destroy(memory);
}

void destroy(wl_shm_pool* pool)
{
    wl_shm_pool_destroy(pool);
}

void destroy(wp_viewport* viewport)
{
    wp_viewport_destroy(viewport);
}

void destroy(wp_viewporter* viewporter)
{
    wp_viewporter_destroy(viewporter);
}

void destroy(zwlr_layer_shell_v1* shell)
{
    zwlr_layer_shell_v1_destroy(shell);
}

void destroy(zwlr_layer_surface_v1* surface)
{
    zwlr_layer_surface_v1_destroy(surface);
}

void destroy(wl_callback* callback)
{
    wl_callback_destroy(callback);
}

void destroy(wl_display* display)
{
    wl_display_disconnect(display);
}

} // namespace Tarvik::WaylandObjects
