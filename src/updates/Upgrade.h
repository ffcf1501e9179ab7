// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"
#include "platform/Clock.h"

#include <functional>
#include <memory>

namespace Tarvik {

class ProgramFile;

/// Restarts the program when another build of it was installed while it ran, as soon as there is nothing that a restart
/// would interrupt.
class Upgrade final {
public:
    struct Actions {
        /// Whether a restart would go unnoticed: nothing is held, nothing promised, no window open.
        std::function<bool()> isIdle;
        /// Ends the program and starts it anew, from the file that is installed now.
        std::function<void()> restart;
    };

    /// Files are installed one after another. For so long none of them may have changed.
    static constexpr Seconds settleTime{5};
    /// Work is often followed by more of it. For so long there must have been none.
    static constexpr Seconds calmTime{10};
    /// After which a build that would not have started is tried again: a library may have come since.
    static constexpr Seconds retryPause{60};

    /// `program` and `clock` must outlive the object.
    Upgrade(ProgramFile& program, Clock& clock, Actions actions);
    Upgrade(const Upgrade&) = delete;
    Upgrade& operator=(const Upgrade&) = delete;

    /// Another build is installed and waits for the restart.
    bool isPending() const { return m_isPending; }

    /// To be called whenever `isIdle` may have another answer.
    void reconsider();

    Signal<void()> pendingChanged;

private:
    void noticeChange();
    void settle();
    void wait(Seconds pause);
    void check();
    bool mayRestart() const;

    ProgramFile& m_program;
    Clock& m_clock;
    Actions m_actions;
    bool m_isPending = false;
    bool m_isChecking = false;
    std::unique_ptr<Timer> m_settling;
    std::unique_ptr<Timer> m_waiting;
    Subscription m_changes;
};

} // namespace Tarvik
