// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/LayerShell.h"

#include <QGuiApplication>

#include <qpa/qplatformnativeinterface.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <utility>

namespace Tarvik {

namespace {

using Display = WaylandObject<wl_display>;
using Queue = WaylandObject<wl_event_queue>;
using Registry = WaylandObject<wl_registry>;
using Pool = WaylandObject<wl_shm_pool>;

constexpr int bytesPerPixel = 4;

template <typename T>
T* bindFirstVersion(wl_registry* registry, uint32_t name, const wl_interface& interface)
{
    return static_cast<T*>(wl_registry_bind(registry, name, &interface, 1));
}

template <typename T>
void moveToDefaultQueue(const T& object)
{
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): every object is a proxy, says libwayland
    if (object)
        wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(object.get()), nullptr);
}

void ignoreRemoval(void*, wl_registry*, uint32_t)
{
}

/// One of the application's own objects, by Qt's name for it.
void* ofPlatform(const char* name)
{
    return QGuiApplication::platformNativeInterface()->nativeResourceForIntegration(name);
}

} // namespace

bool LayerShell::isOffered()
{
    const Display display(wl_display_connect(nullptr));
    return display && globalsOf(display.get()).isComplete();
}

std::unique_ptr<LayerShell> LayerShell::ofApplication()
{
    if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        return nullptr;
    auto* display = static_cast<wl_display*>(ofPlatform("wl_display"));
    Globals globals = globalsOf(display);
    return globals.isComplete() ? std::unique_ptr<LayerShell>(new LayerShell(display, std::move(globals))) : nullptr;
}

bool LayerShell::hasPointer()
{
    return ofPlatform("wl_pointer") != nullptr;
}

LayerShell::LayerShell(wl_display* display, Globals globals)
    : m_display(display)
    , m_globals(std::move(globals))
{
    const int file = memfd_create("tarvik-transparent", MFD_CLOEXEC);
    if (file < 0 || ftruncate(file, bytesPerPixel) != 0)
        qFatal("There is no memory for a pixel");
    const Pool pool(wl_shm_create_pool(m_globals.memory.get(), file, bytesPerPixel));
    close(file);
    m_transparentPixel.reset(wl_shm_pool_create_buffer(pool.get(), 0, 1, 1, bytesPerPixel, WL_SHM_FORMAT_ARGB8888));
}

LayerShell::Globals LayerShell::globalsOf(wl_display* display)
{
    static constexpr wl_registry_listener listener{.global = bind, .global_remove = ignoreRemoval};
    Globals globals;
    // Its own queue: nothing else of the application is to happen while this waits.
    const Queue queue(wl_display_create_queue(display));
    auto* wrapper = static_cast<wl_display*>(wl_proxy_create_wrapper(display));
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(wrapper), queue.get());
    const Registry registry(wl_display_get_registry(wrapper));
    wl_proxy_wrapper_destroy(wrapper);
    wl_registry_add_listener(registry.get(), &listener, &globals);
    wl_display_roundtrip_queue(display, queue.get());
    moveToDefaultQueue(globals.shell);
    moveToDefaultQueue(globals.viewporter);
    moveToDefaultQueue(globals.memory);
    return globals;
}

void LayerShell::bind(void* data, wl_registry* registry, uint32_t name, const char* interface, uint32_t)
{
    auto& globals = *static_cast<Globals*>(data);
    const auto is = [interface](const wl_interface& wanted) { return std::strcmp(interface, wanted.name) == 0; };
    if (is(zwlr_layer_shell_v1_interface))
        globals.shell.reset(bindFirstVersion<zwlr_layer_shell_v1>(registry, name, zwlr_layer_shell_v1_interface));
    else if (is(wp_viewporter_interface))
        globals.viewporter.reset(bindFirstVersion<wp_viewporter>(registry, name, wp_viewporter_interface));
    else if (is(wl_shm_interface))
        globals.memory.reset(bindFirstVersion<wl_shm>(registry, name, wl_shm_interface));
}

} // namespace Tarvik
