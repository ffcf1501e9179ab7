// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/thermal/MachineThermalState.h"

namespace Tarvik {

namespace {

constexpr Seconds pollPeriod{10};
constexpr Seconds restAfterEvent{1};

} // namespace

MachineThermalState::MachineThermalState(Clock& clock, const QDBusConnection& systemBus, const QString& root)
    : m_clock(clock)
    , m_reader(root)
    , m_hint(systemBus)
    , m_events([this] { handleEvent(); })
    , m_hintChanges(m_hint.changed.subscribe([this] { poll(); }))
{
    look();
}

void MachineThermalState::handleEvent()
{
    if (m_rest) {
        m_hasEventWaiting = true;
        return;
    }
    m_rest = m_clock.after(restAfterEvent, [this] {
        m_rest.reset();
        if (m_hasEventWaiting)
            handleEvent();
    });
    m_hasEventWaiting = false;
    m_reader.rescan();
    look();
    changed();
}

void MachineThermalState::poll()
{
    const ThermalLevel before = m_level;
    look();
    if (m_level != before)
        changed();
}

void MachineThermalState::look()
{
    ThermalReadings readings = m_reader.read();
    readings.isSaidToBeTooHot = m_hint.isTooHot();
    m_level = m_classifier.classify(readings, m_clock.now());
    schedulePolls();
}

void MachineThermalState::schedulePolls()
{
    // A level that is still held needs time to pass before it is left.
    const bool isNeeded = m_reader.canTell() || m_hint.isTooHot() || m_level != ThermalLevel::nominal;
    if (isNeeded == (m_polls != nullptr))
        return;
    if (isNeeded)
        m_polls = m_clock.every(pollPeriod, [this] { poll(); });
    else
        m_polls.reset();
}

} // namespace Tarvik
