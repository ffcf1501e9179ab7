// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

struct wl_buffer;
struct wl_callback;
struct wl_display;
struct wl_event_queue;
struct wl_registry;
struct wl_shm;
struct wl_shm_pool;
struct wp_viewport;
struct wp_viewporter;
struct zwlr_layer_shell_v1;
struct zwlr_layer_surface_v1;

namespace Tarvik {

/// Destroys an object of libwayland-client; a display is disconnected.
struct WaylandDestroy {
    void operator()(wl_buffer* buffer) const;
    void operator()(wl_callback* callback) const;
    void operator()(wl_display* display) const;
    void operator()(wl_event_queue* queue) const;
    void operator()(wl_registry* registry) const;
    void operator()(wl_shm* memory) const;
    void operator()(wl_shm_pool* pool) const;
    void operator()(wp_viewport* viewport) const;
    void operator()(wp_viewporter* viewporter) const;
    void operator()(zwlr_layer_shell_v1* shell) const;
    void operator()(zwlr_layer_surface_v1* surface) const;
};

/// An object of libwayland-client that is owned.
template <typename T>
using WaylandObject = std::unique_ptr<T, WaylandDestroy>;

} // namespace Tarvik
