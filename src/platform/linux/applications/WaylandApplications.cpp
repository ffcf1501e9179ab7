// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/WaylandApplications.h"

#include "platform/linux/applications/DesktopFiles.h"

#include <QFile>

#include <wayland-client.h>
#include <wlr-foreign-toplevel-management-unstable-v1-client-protocol.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace Tarvik {

using namespace std::chrono_literals;

namespace {

/// Compositors also tell of every title, which some terminals change ten times a second while an agent works.
constexpr Seconds restTime = 1s;

} // namespace

/// What libwayland calls, for the object that it is given.
struct WaylandApplications::Listeners {
    using Handle = zwlr_foreign_toplevel_handle_v1;
    using Manager = zwlr_foreign_toplevel_manager_v1;

    static WaylandApplications& of(void* data) { return *static_cast<WaylandApplications*>(data); }

    static constexpr wl_registry_listener registry{
        .global =
            [](void* data, wl_registry*, std::uint32_t name, const char* interface, std::uint32_t) {
                of(data).bind(name, interface);
            },
        .global_remove = [](void*, wl_registry*, std::uint32_t) {},
    };
    static constexpr wl_callback_listener globalsSent{
        .done = [](void* data, wl_callback*, std::uint32_t) { of(data).endOfGlobals(); },
    };
    static constexpr zwlr_foreign_toplevel_manager_v1_listener manager{
        .toplevel = [](void* data, Manager*, Handle* handle) { of(data).add(handle); },
        .finished = [](void* data, Manager*) { of(data).m_isAlone = true; },
    };
    static constexpr zwlr_foreign_toplevel_handle_v1_listener handle{
        .title = [](void*, Handle*, const char*) {},
        .app_id = [](void* data, Handle* handle, const char* appId) { of(data).setAppId(handle, appId); },
        .output_enter = [](void*, Handle*, wl_output*) {},
        .output_leave = [](void*, Handle*, wl_output*) {},
        .state = [](void*, Handle*, wl_array*) {},
        .done = [](void*, Handle*) {},
        .closed = [](void* data, Handle* handle) { of(data).remove(handle); },
    };
};

void WaylandApplications::destroy(wl_callback* callback)
{
    wl_callback_destroy(callback);
}

void WaylandApplications::destroy(wl_display* display)
{
    wl_display_disconnect(display);
}

void WaylandApplications::destroy(wl_registry* registry)
{
    wl_registry_destroy(registry);
}

void WaylandApplications::destroy(zwlr_foreign_toplevel_handle_v1* handle)
{
    zwlr_foreign_toplevel_handle_v1_destroy(handle);
}

void WaylandApplications::destroy(zwlr_foreign_toplevel_manager_v1* manager)
{
    zwlr_foreign_toplevel_manager_v1_destroy(manager);
}

std::unique_ptr<WaylandApplications> WaylandApplications::connect(
    const QString& socket, DesktopFiles& files, Clock& clock)
{
    Object<wl_display> display(wl_display_connect(QFile::encodeName(socket).constData()));
    if (display == nullptr)
        return nullptr;
    return std::unique_ptr<WaylandApplications>(new WaylandApplications(std::move(display), files, clock));
}

WaylandApplications::WaylandApplications(Object<wl_display> display, DesktopFiles& files, Clock& clock)
    : m_files(files)
    , m_clock(clock)
    , m_display(std::move(display))
    , m_registry(wl_display_get_registry(m_display.get()))
    , m_globalsSent(wl_display_sync(m_display.get()))
    , m_notifier(std::make_unique<QSocketNotifier>(wl_display_get_fd(m_display.get()), QSocketNotifier::Read))
{
    wl_registry_add_listener(m_registry.get(), &Listeners::registry, this);
    wl_callback_add_listener(m_globalsSent.get(), &Listeners::globalsSent, this);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { receive(); });
    wl_display_flush(m_display.get());
}

WaylandApplications::~WaylandApplications() = default;

QList<RunningApplication> WaylandApplications::list() const
{
    QList<RunningApplication> applications;
    for (const Window& window : m_windows) {
        if (window.appId.isEmpty())
            continue;
        const auto id = m_files.idForWindow({window.appId});
        const RunningApplication running{.id = id.value_or(QString()), .localizedName = id ? QString() : window.appId};
        if (!applications.contains(running))
            applications.append(running);
    }
    return applications;
}

void WaylandApplications::receive()
{
    wl_display* display = m_display.get();
    while (wl_display_prepare_read(display) != 0)
        wl_display_dispatch_pending(display);
    wl_display_read_events(display);
    wl_display_dispatch_pending(display);
    wl_display_flush(display);
    const bool isChanged = std::exchange(m_isChanged, false);
    if (m_isAlone || wl_display_get_error(display) != 0)
        disconnect();
    else if (!isChanged && !m_windows.empty())
        rest();
    if (isChanged)
        changed();
}

void WaylandApplications::rest()
{
    m_notifier->setEnabled(false);
    m_restTimer = m_clock.after(restTime, [this] { m_notifier->setEnabled(true); });
}

void WaylandApplications::disconnect()
{
    m_notifier->setEnabled(false);
    const bool isChanged = !m_windows.empty();
    m_windows.clear();
    m_manager.reset();
    m_globalsSent.reset();
    m_registry.reset();
    m_display.reset();
    if (isChanged)
        changed();
}

void WaylandApplications::bind(std::uint32_t name, const char* interface)
{
    const wl_interface& wanted = zwlr_foreign_toplevel_manager_v1_interface;
    if (m_manager != nullptr || std::strcmp(interface, wanted.name) != 0)
        return;
    m_manager.reset(
        static_cast<zwlr_foreign_toplevel_manager_v1*>(wl_registry_bind(m_registry.get(), name, &wanted, 1)));
    zwlr_foreign_toplevel_manager_v1_add_listener(m_manager.get(), &Listeners::manager, this);
}

void WaylandApplications::endOfGlobals()
{
    m_isAlone = m_manager == nullptr;
}

void WaylandApplications::add(zwlr_foreign_toplevel_handle_v1* handle)
{
    m_windows.push_back({.handle = Object<zwlr_foreign_toplevel_handle_v1>(handle), .appId = {}});
    zwlr_foreign_toplevel_handle_v1_add_listener(handle, &Listeners::handle, this);
}

void WaylandApplications::setAppId(const zwlr_foreign_toplevel_handle_v1* handle, const char* appId)
{
    const auto window
        = std::ranges::find(m_windows, handle, [](const Window& candidate) { return candidate.handle.get(); });
    const QString newId = QString::fromUtf8(appId);
    m_isChanged = m_isChanged || window->appId != newId;
    window->appId = newId;
}

void WaylandApplications::remove(const zwlr_foreign_toplevel_handle_v1* handle)
{
    std::erase_if(m_windows, [handle](const Window& window) { return window.handle.get() == handle; });
    m_isChanged = true;
}

} // namespace Tarvik
