// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/FileDescriptor.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace Tarvik {

/// A program that was started and whose end is waited for. It is held by a pidfd, pidfd_open(2), so that its number
/// cannot have become another process's. Destroying the object lets the program run on; nobody reaps it then.
class ChildProcess {
public:
    struct Command {
        /// The program's path, then its arguments.
        std::vector<std::string> words;
        /// As "NAME=value"; without it the program inherits ours.
        std::optional<std::vector<std::string>> environment{};
        /// Where the standard input comes from and the standard output goes; -1 is the null device, as for the errors.
        /// The former must not have the number of a standard stream.
        int input = -1;
        int output = -1;
        /// Whether the error output goes there as well.
        bool hasErrorsInOutput = false;
        /// Whether the program gets a session of its own, so that no terminal can end it.
        bool hasOwnSession = false;
    };

    /// Nothing when the program cannot be started. It has the three standard streams and no other descriptor of ours,
    /// and no signal is blocked or ignored.
    static std::optional<ChildProcess> start(Command command);

    /// The end has not been taken note of.
    bool isHeld() const { return m_pidfd.isValid(); }

    /// Readable once the program has ended.
    int endDescriptor() const { return m_pidfd.get(); }

    void kill() const;

    /// Whether the program ends within that time.
    bool awaitEnd(std::chrono::milliseconds patience) const;

    /// Waits for the end and takes note of it: the exit status, or nothing when a signal was the end.
    std::optional<int> reap();

private:
    explicit ChildProcess(FileDescriptor pidfd);

    FileDescriptor m_pidfd;
};

} // namespace Tarvik
