// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"
#include "platform/Clock.h"
#include "platform/linux/sleep/ClosedLidFactsReader.h"

#include <memory>

namespace Tarvik {

/// Asks logind for the sleep that a desktop's daemon does not ask for any more, because it does so only while the lid
/// is being closed.
class ClosedLidSleep final {
public:
    /// logind, where it acts itself, looks at the lid before.
    static constexpr Seconds settlingTime{0.7};
    /// How long, and how often, a lock that stands in the way is waited for.
    static constexpr Seconds waitingTime{0.5};
    static constexpr int waits = 6;

    ClosedLidSleep(QDBusConnection systemBus, QDBusConnection sessionBus, Clock& clock);

    /// An earlier attempt starts anew.
    void start();
    void stop();

    /// Returns when an attempt under way has come to its end, four seconds later at most; for the end of the program.
    void finish();

private:
    void look();
    void act(const std::optional<ClosedLidFacts>& facts);
    void suspend();
    void end();

    QDBusConnection m_systemBus;
    QDBusConnection m_sessionBus;
    Clock& m_clock;
    std::unique_ptr<Timer> m_timer;
    std::optional<ClosedLidFactsReader> m_reader;
    int m_waitsLeft = 0;
    bool m_isUnderWay = false;
    Signal<void()> m_ended;
    DBusCall m_suspending;
};

} // namespace Tarvik
