// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/placement/WaylandObject.h"

#include <viewporter-client-protocol.h>
#include <wayland-client.h>
#include <wlr-layer-shell-unstable-v1-client-protocol.h>

#include <memory>

namespace Tarvik {

/// The compositor's zwlr_layer_shell_v1, by which a Wayland client may place a window on a screen, with what else such
/// windows take: wp_viewporter and a transparent pixel.
class LayerShell {
public:
    /// Whether the compositor of the environment offers a layer shell. Asks it over a connection of its own, so the
    /// answer is to be had before there is an application object.
    static bool isOffered();
    /// Of the application's own connection; null where the platform is not Wayland or offers no layer shell.
    static std::unique_ptr<LayerShell> ofApplication();

    zwlr_layer_shell_v1* shell() const { return m_globals.shell.get(); }
    wp_viewporter* viewporter() const { return m_globals.viewporter.get(); }
    /// Fires as soon as the compositor has done what was asked of it so far.
    WaylandObject<wl_callback> sync() const { return WaylandObject<wl_callback>(wl_display_sync(m_display)); }
    /// Whether there is a pointer that can be anywhere.
    static bool hasPointer();
    wl_buffer* transparentPixel() const { return m_transparentPixel.get(); }

private:
    struct Globals {
        WaylandObject<zwlr_layer_shell_v1> shell;
        WaylandObject<wp_viewporter> viewporter;
        WaylandObject<wl_shm> memory;

        bool isComplete() const { return shell && viewporter && memory; }
    };

    LayerShell(wl_display* display, Globals globals);
    static Globals globalsOf(wl_display* display);
    static void bind(void* globals, wl_registry* registry, uint32_t name, const char* interface, uint32_t version);

    wl_display* m_display;
    Globals m_globals;
    WaylandObject<wl_buffer> m_transparentPixel;
};

} // namespace Tarvik
