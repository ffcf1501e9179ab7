// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

#include <memory>

namespace Tarvik {

class DisplayPower;
class LidSensor;

/// Switches the displays off once each time the lid is closed while the machine is kept awake, and sees to it that
/// whoever opens the lid finds them on.
class ScreenBlank {
public:
    struct Situation {
        /// The machine is kept awake.
        bool awake = false;
        bool lidClosed = false;
        /// The user wants this.
        bool screenOffOnLidClose = false;
    };

    /// How often an opening lid is looked for when nobody else does; a user who looks at a black screen waits for it.
    static constexpr Seconds lidPollPeriod{2};

    /// All must outlive the object.
    ScreenBlank(DisplayPower& display, LidSensor& lid, Clock& clock);

    /// To be called after every change of the situation.
    void update(const Situation& situation);

private:
    void sleepDisplay();
    void wakeDisplayIfLidIsOpen();

    DisplayPower& m_display;
    LidSensor& m_lid;
    Clock& m_clock;
    /// The display has been put to sleep for this closure of the lid.
    bool m_screenBlanked = false;
    /// Nobody has opened the lid since the display was put to sleep.
    bool m_isDisplayAsleep = false;
    std::unique_ptr<Timer> m_lidPoll;
};

} // namespace Tarvik
