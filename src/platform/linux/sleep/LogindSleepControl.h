// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SleepControl.h"
#include "platform/linux/sleep/ClosedLidSleep.h"
#include "platform/linux/sleep/OverrideTaking.h"

#include <QDBusConnection>
#include <QStringList>

#include <memory>
#include <vector>

namespace Tarvik {

/// By logind's locks (org.freedesktop.login1) and its Suspend.
class LogindSleepControl final : public SleepControl {
public:
    /// `clock` must outlive the object and its overrides. `programDirectories` are where the programs are that an
    /// administrator has to allow.
    LogindSleepControl(QDBusConnection systemBus,
        QDBusConnection sessionBus,
        Clock& clock,
        QStringList programDirectories = {QStringLiteral("/usr/bin"), QStringLiteral("/bin")});
    /// Sees to the sleep that was asked for last, which may take seconds: nobody else would.
    ~LogindSleepControl() override;
    LogindSleepControl(const LogindSleepControl&) = delete;
    LogindSleepControl& operator=(const LogindSleepControl&) = delete;

    /// As long as an administrator's password is being asked for, destroying the object takes the question back.
    void takeOverride(OverrideReceiver done) override;
    void sleepForClosedLid() override;

private:
    QDBusConnection m_systemBus;
    QDBusConnection m_sessionBus;
    Clock& m_clock;
    QStringList m_programDirectories;
    std::vector<std::unique_ptr<OverrideTaking>> m_takings;
    ClosedLidSleep m_closedLidSleep;
};

} // namespace Tarvik
