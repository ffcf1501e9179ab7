// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChildProcess.h"

#include <QSocketNotifier>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace Tarvik {

/// A program that runs beside this process. It outlives the object, which must live until its end to have the child
/// reaped.
class StartedProgram final {
public:
    /// The exit status, or nothing when a signal was the end.
    using ExitReceiver = std::function<void(std::optional<int> status)>;

    /// Nothing when the program cannot be started. `onExit` may destroy the object.
    static std::unique_ptr<StartedProgram> start(ChildProcess::Command command, ExitReceiver onExit);
    ~StartedProgram();

    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;

    /// What runs such a program in a session of its own; `executable` is its path.
    static ChildProcess::Command command(const QString& executable, const QStringList& arguments);

    /// Ends it, where that is permitted, and keeps the object until it has ended. Nobody is told.
    static void end(std::unique_ptr<StartedProgram> program);

    bool isRunning() const { return m_process.isHeld(); }

private:
    StartedProgram(ChildProcess process, ExitReceiver onExit);
    void reap();

    ChildProcess m_process;
    ExitReceiver m_onExit;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace Tarvik
