// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/ThermalState.h"
#include "platform/linux/thermal/PowerProfilesHeat.h"
#include "platform/linux/thermal/SysfsThermalReader.h"
#include "platform/linux/thermal/ThermalClassifier.h"
#include "platform/linux/thermal/ThermalEvents.h"

#include <QString>

#include <memory>

namespace Tarvik {

/// The machine's thermal state as its thermal zones and throttle counters, and with less weight power-profiles-daemon,
/// tell it. The kernel announces that trips are crossed, for the zones that it watches itself; the others need a slow
/// look, which machines that cannot tell are spared.
class MachineThermalState final : public ThermalState {
public:
    /// `systemBus` may be without connection. `clock` must outlive the object.
    MachineThermalState(Clock& clock, const QDBusConnection& systemBus, const QString& root = QStringLiteral("/sys"));

    ThermalLevel level() const override { return m_level; }

    /// What an event of the kernel leads to: a look at everything, and `changed`. A burst of events leads to one look
    /// a second.
    void handleEvent();

private:
    void poll();
    void look();
    void schedulePolls();

    Clock& m_clock;
    SysfsThermalReader m_reader;
    PowerProfilesHeat m_hint;
    ThermalClassifier m_classifier;
    ThermalLevel m_level = ThermalLevel::nominal;
    std::unique_ptr<Timer> m_polls;
    std::unique_ptr<Timer> m_rest;
    bool m_hasEventWaiting = false;
    ThermalEvents m_events;
    Subscription m_hintChanges;
};

} // namespace Tarvik
