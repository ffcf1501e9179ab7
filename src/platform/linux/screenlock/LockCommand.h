// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChildProcess.h"

#include <QSocketNotifier>
#include <QStringList>

#include <functional>
#include <memory>

namespace Tarvik {

/// A program that locks the screen, in a session of its own and without our standard streams. It outlives the object,
/// which must live until its end to have the child reaped.
class LockCommand final {
public:
    /// Nothing when the program is not in PATH or cannot be started. `onExit` gets whether it has ended with status 0;
    /// it may destroy the object.
    static std::unique_ptr<LockCommand> start(
        const QString& program, const QStringList& arguments, std::function<void(bool succeeded)> onExit);
    ~LockCommand();

    LockCommand(const LockCommand&) = delete;
    LockCommand& operator=(const LockCommand&) = delete;

    bool isRunning() const { return m_process.isHeld(); }

private:
    LockCommand(ChildProcess process, std::function<void(bool succeeded)> onExit);
    void reap();

    ChildProcess m_process;
    std::function<void(bool succeeded)> m_onExit;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace Tarvik
