// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Announcement.h"

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Tarvik {

/// Runs a program and holds a lease for as long as it runs, whatever way it ends. The program keeps the terminal and
/// the standard streams; signals that are sent to this process alone are passed on to it. A program that is
/// stopped does not work: it has no lease until it continues, and stopped from the terminal it stops this process too.
class HeldCommand final {
public:
    using Announce = std::function<bool(const Announcement&)>;

    /// The lease is renewed each period and lasts for two of them, so that it lapses soon if nobody is left to give it
    /// back. `announce` is called for every acquire and release; the first one that fails is told on the standard
    /// error.
    HeldCommand(
        std::vector<std::string> command, std::string reason, std::chrono::milliseconds period, Announce announce);

    /// Returns when the program has ended: with its status, 128 + the number of the signal that ended it, 127 when it
    /// was not found, or 126 when it could not be run.
    int run();

    const std::string& session() const { return m_session; }

private:
    class SignalBlock;

    void acquire();
    void release();
    /// Starts the program; an errno when that failed, else 0.
    int start(const SignalBlock& block);
    int watch(const SignalBlock& block);
    void passOnSignal(int signals) const;
    /// The exit status, once the program has ended.
    std::optional<int> followChild();
    void followStop(int signal);

    std::vector<std::string> m_command;
    std::chrono::milliseconds m_period;
    Announce m_announce;
    std::string m_session;
    Announcement m_lease;
    pid_t m_child = -1;
    bool m_hasWarned = false;
};

} // namespace Tarvik
