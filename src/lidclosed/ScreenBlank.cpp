// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "lidclosed/ScreenBlank.h"

#include "core/Logging.h"
#include "platform/DisplayPower.h"
#include "platform/LidSensor.h"

#include <utility>

namespace Tarvik {

ScreenBlank::ScreenBlank(DisplayPower& display, LidSensor& lid, Clock& clock)
    : m_display(display)
    , m_lid(lid)
    , m_clock(clock)
{
}

void ScreenBlank::update(const Situation& situation)
{
    const bool isBlankWanted = situation.awake && situation.lidClosed && situation.screenOffOnLidClose;
    if (!std::exchange(m_screenBlanked, isBlankWanted) && isBlankWanted)
        sleepDisplay();
    // As long as the machine is kept awake, the lid's opening comes here as a change.
    if (situation.awake && situation.lidClosed)
        m_lidPoll.reset();
    else
        wakeDisplayIfLidIsOpen();
}

void ScreenBlank::sleepDisplay()
{
    m_isDisplayAsleep = true;
    m_display.sleepNow([](const QString& error) {
        if (!error.isEmpty())
            qCCritical(logSystem, "pmset displaysleepnow failed: %ls", qUtf16Printable(error));
    });
}

void ScreenBlank::wakeDisplayIfLidIsOpen()
{
    if (!m_isDisplayAsleep)
        return;
    if (m_lid.isClosed() == false) {
        m_isDisplayAsleep = false;
        m_lidPoll.reset();
        m_display.wake();
    } else if (!m_lidPoll) {
        m_lidPoll = m_clock.every(lidPollPeriod, [this] { wakeDisplayIfLidIsOpen(); });
    }
}

} // namespace Tarvik
