// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

#include <QByteArray>

#include <functional>

namespace Tarvik {

/// The command lines of all running processes, one a line: the output of "/bin/ps -axww -o args=".
class ProcessTable {
public:
    /// Takes the raw output; empty when the listing could not be had.
    using Receiver = std::function<void(const QByteArray&)>;

    virtual ~ProcessTable() = default;

    /// Lists without blocking; `receiver` is called later from the event loop, unless the table is destroyed before.
    /// Must not be called while an earlier listing is still running.
    virtual void read(Receiver receiver) = 0;

    /// Waits for the listing that is running. Returns whether it has come to its end, and its receiver has been called,
    /// within that time; else it goes on. Blocks; meant for the one pass before the event loop runs.
    virtual bool wait(Seconds patience) = 0;
};

} // namespace Tarvik
