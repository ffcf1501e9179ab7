// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChildProcess.h"

#include <QByteArray>

#include <memory>
#include <string>

namespace Tarvik {

/// One running listing: the child, the pipe that it writes to and what has been read so far. Destroying it kills the
/// child if it still runs.
class PsProcess {
public:
    /// Nothing when the child cannot be started.
    static std::unique_ptr<PsProcess> start(const std::string& executable, qsizetype maximumBytes);
    ~PsProcess();

    PsProcess(const PsProcess&) = delete;
    PsProcess& operator=(const PsProcess&) = delete;

    /// Readable once the child has ended.
    int endDescriptor() const { return m_process.endDescriptor(); }
    /// Whether the child ends within that time.
    bool awaitEnd(std::chrono::milliseconds patience) const { return m_process.awaitEnd(patience); }

    /// Takes what lies in the pipe, without blocking; false when that is more than allowed or cannot be read.
    bool readAvailable();
    /// Waits for the child to end. True if it ended by itself, with whatever status.
    bool reap() { return m_process.reap().has_value(); }

    const QByteArray& output() const { return m_output; }

private:
    PsProcess(ChildProcess process, FileDescriptor pipe, qsizetype maximumBytes);
    /// At most `size` bytes in one read(2); the number of bytes, 0 at the end, or -1.
    qsizetype append(qsizetype size);

    ChildProcess m_process;
    FileDescriptor m_pipe;
    qsizetype m_maximumBytes;
    QByteArray m_output;
};

} // namespace Tarvik
