// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCall.h"

#include <functional>
#include <vector>

namespace Tarvik {

/// Asks everybody who might know whether the screen is locked: logind for the session's LockedHint, and the screen
/// savers whether they are active. Not every locker tells anybody.
class LockedScreenProbe final {
public:
    LockedScreenProbe(const QDBusConnection& systemBus, const QDBusConnection& sessionBus);

    /// `onLocked` is called for each one that says so, later. Who has not yet answered is not asked again.
    void ask(const std::function<void()>& onLocked);

    /// Drops the answers that are still to come.
    void cancel();

private:
    struct Witness {
        QDBusConnection bus;
        QDBusMessage question;
        DBusCall call;
    };

    std::vector<Witness> m_witnesses;
};

} // namespace Tarvik
