// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Releaser.h"
#include "platform/Clock.h"
#include "platform/RunningApplications.h"

#include <QSocketNotifier>

#include <cstdint>
#include <memory>
#include <vector>

struct wl_callback;
struct wl_display;
struct wl_registry;
struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;

namespace Tarvik {

class DesktopFiles;

/// Applications with a window on a Wayland compositor, by its zwlr_foreign_toplevel_manager_v1. An application without
/// a desktop file has no id and the app_id of its windows as its name. Compositors that do not offer the protocol are
/// left alone at once. When the compositor goes away, so do its applications; there is no second attempt.
class WaylandApplications final : public RunningApplications {
public:
    /// `socket` is the absolute path of the compositor's socket. Nothing when nobody listens there. `files` and `clock`
    /// must outlive the object.
    static std::unique_ptr<WaylandApplications> connect(const QString& socket, DesktopFiles& files, Clock& clock);
    ~WaylandApplications() override;

    WaylandApplications(const WaylandApplications&) = delete;
    WaylandApplications& operator=(const WaylandApplications&) = delete;

    QList<RunningApplication> list() const override;

private:
    static void destroy(wl_callback* callback);
    static void destroy(wl_display* display);
    static void destroy(wl_registry* registry);
    static void destroy(zwlr_foreign_toplevel_handle_v1* handle);
    static void destroy(zwlr_foreign_toplevel_manager_v1* manager);
    template <typename T>
    using Object = Owned<T, static_cast<void (*)(T*)>(destroy)>;

    struct Window {
        Object<zwlr_foreign_toplevel_handle_v1> handle;
        QString appId;
    };
    struct Listeners;

    WaylandApplications(Object<wl_display> display, DesktopFiles& files, Clock& clock);

    void receive();
    void rest();
    void disconnect();
    void bind(std::uint32_t name, const char* interface);
    void endOfGlobals();
    void add(zwlr_foreign_toplevel_handle_v1* handle);
    void setAppId(const zwlr_foreign_toplevel_handle_v1* handle, const char* appId);
    void remove(const zwlr_foreign_toplevel_handle_v1* handle);

    DesktopFiles& m_files;
    Clock& m_clock;
    // Before everything that belongs to the display, so that it goes after it.
    Object<wl_display> m_display;
    Object<wl_registry> m_registry;
    Object<wl_callback> m_globalsSent;
    Object<zwlr_foreign_toplevel_manager_v1> m_manager;
    std::vector<Window> m_windows;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::unique_ptr<Timer> m_restTimer;
    bool m_isAlone = false;
    bool m_isChanged = false;
};

} // namespace Tarvik
