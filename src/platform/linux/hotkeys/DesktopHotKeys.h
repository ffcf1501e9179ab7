// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "platform/HotKeys.h"

#include <QObject>

#include <memory>
#include <vector>

namespace Tarvik {

class X11Connection;

/// Shortcuts of whichever desktop is running, also when it appears later: KGlobalAccel where its name is owned; else,
/// under Wayland, the desktop portal and, where that has none, GNOME's custom shortcuts; else, on an X server, GNOME's
/// custom shortcuts, because its shell keeps the keyboard to itself while the overview is open, and elsewhere key
/// grabs; else none.
class DesktopHotKeys final : public HotKeys {
public:
    struct Display {
        /// Null without an X server.
        std::shared_ptr<X11Connection> x11;
        /// Programs draw on a Wayland compositor. Key grabs on its X server see only what is typed into X programs.
        bool isWayland = false;
    };

    DesktopHotKeys(QDBusConnection sessionBus, Display display);
    ~DesktopHotKeys() override;
    DesktopHotKeys(const DesktopHotKeys&) = delete;
    DesktopHotKeys& operator=(const DesktopHotKeys&) = delete;

    [[nodiscard]] std::unique_ptr<HotKeyRegistration> registerHotKey(const HotKeyRequest& request) override;

private:
    class Registration;

    void choose();
    bool hasGnomeShortcuts() const;
    bool isRefused() const;
    bool isRefusedByPortal() const;
    void fallBackFromPortal();
    void use(std::unique_ptr<HotKeys> provider);

    QDBusConnection m_bus;
    Display m_display;
    std::unique_ptr<HotKeys> m_provider;
    Subscription m_presses;
    Subscription m_stateChanges;
    std::vector<Registration*> m_registrations;
    BusNameWatch m_names;
    bool m_isOnPortal = false;
    QObject m_eventLoop;
};

} // namespace Tarvik
