// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/PowerSources.h"
#include "platform/linux/kernel/UeventMonitor.h"

#include <QString>

#include <memory>

namespace Tarvik {

/// The kernel's power supplies. Supplies that come, go, are plugged or unplugged are announced by the kernel; not every
/// battery tells that it runs down, so a machine with one is looked at once a minute.
class SysfsPowerSources final : public PowerSources {
public:
    explicit SysfsPowerSources(Clock& clock, QString root = QStringLiteral("/sys"));

    /// Reads the supplies, which takes well under a millisecond a file; nothing where the kernel knows no such thing.
    std::optional<PowerSourcesSnapshot> snapshot() const override;

    /// What an event of the kernel leads to.
    void handleEvent();

private:
    void poll();
    void schedulePolls();

    Clock& m_clock;
    QString m_root;
    std::optional<PowerSourcesSnapshot> m_last;
    std::unique_ptr<Timer> m_polls;
    UeventMonitor m_uevents;
};

} // namespace Tarvik
