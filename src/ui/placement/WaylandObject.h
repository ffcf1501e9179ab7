// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Releaser.h"

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

/// The functions of libwayland-client that end an object; a display is disconnected.
namespace WaylandObjects {
void destroy(wl_buffer* buffer);
void destroy(wl_callback* callback);
void destroy(wl_display* display);
void destroy(wl_event_queue* queue);
void destroy(wl_registry* registry);
void destroy(wl_shm* memory);
void destroy(wl_shm_pool* pool);
void destroy(wp_viewport* viewport);
void destroy(wp_viewporter* viewporter);
void destroy(zwlr_layer_shell_v1* shell);
void destroy(zwlr_layer_surface_v1* surface);
} // namespace WaylandObjects

/// An object of libwayland-client that is owned.
template <typename T>
using WaylandObject = Owned<T, static_cast<void (*)(T*)>(WaylandObjects::destroy)>;

} // namespace Tarvik
