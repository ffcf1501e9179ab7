// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/FileDescriptor.h"
#include "dbus/BusNameWatch.h"
#include "dbus/DBusSignal.h"
#include "platform/SleepHistory.h"
#include "platform/linux/programs/StartedProgram.h"

#include <QStringList>

#include <memory>
#include <string>
#include <vector>

namespace Tarvik {

/// What the system's journal tells of, where this user may read it, else what logind (org.freedesktop.login1) has
/// announced since this object was made. Another program reads the journal: its files, mapped here, would stay with the
/// memory of this process.
class SystemSleepHistory final : public SleepHistory {
public:
    /// How long that program may take.
    static constexpr Seconds patience{2.5};

    struct Journal {
        /// Of journalctl(1).
        std::string program = "/usr/bin/journalctl";
        /// Of journals, those that stay and those of this boot.
        QStringList directories = {QStringLiteral("/var/log/journal"), QStringLiteral("/run/log/journal")};
    };

    /// The bus may be without connection. `clock` must outlive the object.
    SystemSleepHistory(QDBusConnection systemBus, Clock& clock, Journal journal);
    ~SystemSleepHistory() override;
    SystemSleepHistory(const SystemSleepHistory&) = delete;
    SystemSleepHistory& operator=(const SystemSleepHistory&) = delete;

    using Receiver = std::function<void(const std::optional<QList<PastSleep>>&)>;

    void read(Receiver done) override;

private:
    void follow();
    void take(bool isBeginning);
    bool mayReadJournal() const;
    bool start();
    void finish(bool hasEnded);
    void stop();
    std::optional<QList<PastSleep>> announced() const;

    QDBusConnection m_systemBus;
    Clock& m_clock;
    Journal m_journal;
    BusNameWatch m_names;
    std::unique_ptr<DBusSignal> m_announcements;
    /// Since this object was made.
    QList<PastSleep> m_announced;
    /// Those that wait for the journal.
    std::vector<Receiver> m_receivers;
    std::unique_ptr<StartedProgram> m_program;
    FileDescriptor m_output;
    std::unique_ptr<Timer> m_end;
};

} // namespace Tarvik
