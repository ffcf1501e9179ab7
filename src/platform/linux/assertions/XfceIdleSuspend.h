// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCall.h"
#include "dbus/DBusSignal.h"

#include <QVersionNumber>

#include <array>
#include <functional>
#include <optional>

namespace Tarvik {

/// Whether XFCE's power manager is set to suspend, on mains or on battery, after a time without activity. Follows
/// "inactivity-on-ac" and "inactivity-on-battery" of the Xfconf channel "xfce4-power-manager" and never writes them.
class XfceIdleSuspend final {
public:
    explicit XfceIdleSuspend(QDBusConnection sessionBus);

    bool isSet() const { return m_isSet; }

    /// `isSet()` has changed.
    std::function<void()> onChange;

    /// What a value in minutes means to a release of the power manager. No value means the default, "never".
    static bool suspends(std::optional<uint> minutes, const QVersionNumber& release);

private:
    void readSettings();
    void readRelease();
    void publish();

    QDBusConnection m_bus;
    QVersionNumber m_release;
    std::array<std::optional<uint>, 2> m_minutes;
    bool m_isSet = false;
    DBusCall m_releaseCall;
    std::array<DBusCall, 2> m_settingCalls;
    DBusSignal m_changes;
    DBusSignal m_removals;
};

} // namespace Tarvik
