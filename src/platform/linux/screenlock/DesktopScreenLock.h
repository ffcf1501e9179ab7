// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/ScreenLock.h"
#include "platform/linux/programs/StartedProgram.h"
#include "platform/linux/screenlock/LockedScreenProbe.h"

#include <QList>

#include <memory>
#include <vector>

namespace Tarvik {

/// Locks the user's session by whoever does it here: logind's signal, which every desktop's locker hears; else the
/// desktop's own call; else a program. Each gets two seconds, because most of them do not tell what they have done.
class DesktopScreenLock final : public ScreenLock {
public:
    struct Command {
        /// What says that the screen is locked, apart from those who are asked in any case.
        enum class Proof { none, exit, staying };

        QString program;
        QStringList arguments;
        Proof proof = Proof::none;
        /// The exit status that says that another locker has the screen already.
        int lockedStatus = 0;
    };

    static constexpr Seconds patience{2};
    static constexpr Seconds pollingPeriod{0.2};

    /// `clock` must outlive the object.
    DesktopScreenLock(QDBusConnection systemBus,
        QDBusConnection sessionBus,
        Clock& clock,
        QList<Command> commands = defaultCommands());
    DesktopScreenLock(const DesktopScreenLock&) = delete;
    DesktopScreenLock& operator=(const DesktopScreenLock&) = delete;

    void lock(std::function<void(const QString& error)> done) override;

    static QList<Command> defaultCommands();

private:
    void tryNext();
    void call(std::size_t index);
    void start(const Command& command);
    void giveTime(std::function<void()> onTimeout);
    void probe();
    void finish(const QString& error);

    QDBusConnection m_systemBus;
    QDBusConnection m_sessionBus;
    Clock& m_clock;
    QList<Command> m_commands;
    LockedScreenProbe m_probe;
    std::vector<std::function<void(const QString& error)>> m_waiting;
    /// Of the calls and then the commands.
    std::size_t m_next = 0;
    bool m_wasAccepted = false;
    DBusCall m_call;
    std::unique_ptr<Timer> m_polling;
    std::unique_ptr<Timer> m_timeout;
    std::vector<std::unique_ptr<StartedProgram>> m_running;
};

} // namespace Tarvik
