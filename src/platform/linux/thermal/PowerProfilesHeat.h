// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"
#include "dbus/BusNameWatch.h"
#include "dbus/RemoteProperties.h"

#include <memory>

namespace Tarvik {

/// Whether power-profiles-daemon, where it runs, says that the machine is too hot for full speed: its property
/// PerformanceDegraded is "high-operating-temperature". A weak hint, because it says so wherever the processor's turbo
/// is switched off, by whomever.
class PowerProfilesHeat final {
public:
    explicit PowerProfilesHeat(const QDBusConnection& systemBus);
    PowerProfilesHeat(const PowerProfilesHeat&) = delete;
    PowerProfilesHeat& operator=(const PowerProfilesHeat&) = delete;

    bool isTooHot() const { return m_isTooHot; }

    /// `isTooHot()` has changed.
    Signal<void()> changed;

private:
    void followOwner();
    void update();

    QDBusConnection m_bus;
    BusNameWatch m_names;
    std::unique_ptr<RemoteProperties> m_properties;
    bool m_isTooHot = false;
};

} // namespace Tarvik
