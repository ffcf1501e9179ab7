// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "platform/Clock.h"
#include "platform/SleepControl.h"
#include "platform/linux/inhibitors/DBusInhibitor.h"

#include <functional>
#include <memory>
#include <optional>

namespace Tarvik {

/// A lock of logind that this process holds, and takes again when logind restarts.
class UserLock final : public SleepOverride {
public:
    UserLock(const QDBusConnection& systemBus, const InhibitorRequest& request, Clock& clock);

    /// `done` gets later, once, whether logind has granted it; it may destroy the object.
    void take(std::function<void(bool isGranted)> done);

    /// From now on the lock counts as lost when one of these names on `sessionBus` has an owner.
    void yieldTo(const QDBusConnection& sessionBus, const QStringList& names);

private:
    void tell();
    void lose();

    Clock& m_clock;
    BusNameWatch m_logind;
    DBusInhibitor m_inhibitor;
    std::optional<BusNameWatch> m_daemons;
    std::unique_ptr<Timer> m_loss;
    std::function<void(bool isGranted)> m_done;
};

} // namespace Tarvik
