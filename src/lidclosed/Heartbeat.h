// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

#include <QObject>

#include <memory>

namespace Tarvik {

class HelperManager;

/// Tells the background helper that the application is still there, without which the helper lets the machine sleep
/// again after a while.
class Heartbeat : public QObject {
    Q_OBJECT

public:
    static constexpr Seconds period{30};

    /// Both must outlive the object.
    Heartbeat(HelperManager& manager, Clock& clock);

    /// Beats at once and then once a period; answers do not matter. Does nothing when the helper cannot be used.
    void start();

    void stop() { m_timer.reset(); }

Q_SIGNALS:
    /// A beat came so late, the process having stood still, that the helper may have given up.
    void late();

private:
    void beat();

    HelperManager& m_manager;
    Clock& m_clock;
    std::unique_ptr<Timer> m_timer;
    TimePoint m_lastBeat;
};

} // namespace Tarvik
