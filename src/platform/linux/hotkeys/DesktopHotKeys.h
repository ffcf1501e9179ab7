// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/HotKeys.h"
#include "platform/linux/dbus/BusNameWatch.h"

#include <QByteArray>

#include <functional>
#include <memory>
#include <vector>

namespace Tarvik {

/// Shortcuts of whichever desktop is running: KGlobalAccel where its name is owned, also when it appears later; else
/// key grabs on an X server; else, under Wayland, the desktop portal; else, where that has none and GNOME's settings
/// daemon runs, GNOME's custom shortcuts; else none.
class DesktopHotKeys final : public HotKeys {
public:
    struct Display {
        /// The value of DISPLAY.
        QByteArray x11;
        /// Programs draw on a Wayland compositor. Key grabs on its X server see only what is typed into X programs.
        bool isWayland = false;
    };

    /// `clock` must outlive the object.
    DesktopHotKeys(QDBusConnection sessionBus, Display display, Clock& clock);
    ~DesktopHotKeys() override;
    DesktopHotKeys(const DesktopHotKeys&) = delete;
    DesktopHotKeys& operator=(const DesktopHotKeys&) = delete;

    [[nodiscard]] std::unique_ptr<HotKeyRegistration> registerHotKey(const HotKeyRequest& request) override;

private:
    class Registration;

    void choose();
    bool isRefusedByPortal() const;
    void fallBackFromPortal();
    void use(std::unique_ptr<HotKeys> provider);

    QDBusConnection m_bus;
    Display m_display;
    Clock& m_clock;
    std::unique_ptr<HotKeys> m_provider;
    std::vector<Registration*> m_registrations;
    BusNameWatch m_names;
    bool m_isOnPortal = false;
    QObject m_eventLoop;
};

} // namespace Tarvik
