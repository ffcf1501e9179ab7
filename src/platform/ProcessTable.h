// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <functional>

namespace Tarvik {

/// The command lines of all running processes, one a line: the output of "/bin/ps -axww -o args=".
class ProcessTable {
public:
    /// Takes the raw output; empty when the listing could not be had.
    using Receiver = std::function<void(const QByteArray&)>;

    virtual ~ProcessTable() = default;

    /// Lists and waits for the result. Blocks; meant for the one pass before the event loop runs.
    virtual QByteArray readNow() = 0;

    /// Lists without blocking; `receiver` is called later from the event loop, unless the table is destroyed before.
    /// Must not be called while an earlier listing is still running.
    virtual void read(Receiver receiver) = 0;
};

} // namespace Tarvik
