// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/SleepLocks.h"
#include "platform/linux/locks/LockReading.h"
#include "platform/linux/locks/ProgramLabels.h"

#include <QDBusConnection>

#include <memory>
#include <vector>

namespace Tarvik {

/// The locks of logind, of the session manager (org.gnome.SessionManager) and of the desktop's power manager.
class DesktopSleepLocks final : public SleepLocks {
public:
    /// Either bus may be without connection. `clock` must outlive the object.
    DesktopSleepLocks(QDBusConnection systemBus,
        QDBusConnection sessionBus,
        ProgramLabels::Applications applications,
        LockReading::Desktop desktop,
        Clock& clock);
    DesktopSleepLocks(const DesktopSleepLocks&) = delete;
    DesktopSleepLocks& operator=(const DesktopSleepLocks&) = delete;

    void list(std::function<void(const SleepLockList&)> done) override;

private:
    QDBusConnection m_systemBus;
    QDBusConnection m_sessionBus;
    ProgramLabels m_labels;
    LockReading::Desktop m_desktop;
    Clock& m_clock;
    /// Those that wait for the reading that is under way.
    std::vector<std::function<void(const SleepLockList&)>> m_receivers;
    std::unique_ptr<LockReading> m_reading;
};

} // namespace Tarvik
