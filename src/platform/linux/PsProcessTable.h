// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/ProcessTable.h"

#include <QObject>

#include <memory>
#include <string>

class QSocketNotifier;

namespace Tarvik {

class PsProcess;

/// The process table as ps(1) prints it, in the C.UTF-8 locale and unaffected by the user's environment. The bytes are
/// handed on as they come, whatever the exit status; a listing that cannot be started, that is killed, that exceeds
/// `maximumBytes` or that takes longer than `longestListing` is empty. A usual listing wakes this process up once, when
/// the child has ended.
class PsProcessTable final : public ProcessTable {
public:
    static constexpr qsizetype maximumBytes = qsizetype{256} * 1024 * 1024;
    static constexpr Seconds longestListing{30};

    /// `clock` must outlive the table.
    explicit PsProcessTable(Clock& clock, std::string executable = "/bin/ps");
    /// A listing that is still running is killed; its receiver is not called.
    ~PsProcessTable() override;

    PsProcessTable(const PsProcessTable&) = delete;
    PsProcessTable& operator=(const PsProcessTable&) = delete;

    void read(Receiver receiver) override;
    bool wait(Seconds patience) override;

private:
    void drainLater();
    void drain();
    void conclude();
    void finish(bool complete);

    Clock& m_clock;
    std::string m_executable;
    QObject m_context;
    Receiver m_receiver;
    std::unique_ptr<PsProcess> m_process;
    std::unique_ptr<QSocketNotifier> m_exitNotifier;
    Seconds m_drainDelay{0};
    /// Until the child is given up.
    Seconds m_remaining{0};
    std::unique_ptr<Timer> m_drainTimer;
};

} // namespace Tarvik
