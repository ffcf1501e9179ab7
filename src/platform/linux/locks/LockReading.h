// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/kernel/OwnProcesses.h"
#include "platform/linux/locks/LockAnswers.h"
#include "platform/linux/locks/SessionManagerLocks.h"
#include "platform/linux/services/ServiceRound.h"

#include <functional>
#include <optional>

namespace Tarvik {

/// One round of asking all services that are there for the locks that they keep.
class LockReading final {
public:
    struct Desktop {
        /// A compositor has the screen.
        bool isWayland = false;
        /// Must be given.
        OwnProcesses::Names processes = {};
    };

    /// `done` is called once, later, and may destroy the object. `clock` must outlive it.
    LockReading(const QDBusConnection& systemBus,
        const QDBusConnection& sessionBus,
        Desktop desktop,
        Clock& clock,
        std::function<void(const LockAnswers& answers)> done);
    LockReading(const LockReading&) = delete;
    LockReading& operator=(const LockReading&) = delete;

private:
    void ask();
    void askLogind();
    void askForProcesses();
    void askForProcess(const QString& name, std::function<void(qint64 process)> take);
    void askSessionManager();
    void askPowerDevil();
    void askPowerManagement();
    QStringList silentServices() const;
    void finish();

    Desktop m_desktop;
    std::function<void(const LockAnswers& answers)> m_done;
    LockAnswers m_answers;
    bool m_keepsSessionUp = false;
    bool m_keepsDisplayOn = false;
    std::optional<SessionManagerLocks> m_sessionManager;
    ServiceRound m_round;
};

} // namespace Tarvik
