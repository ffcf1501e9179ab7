// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/sleep/AdministratorLock.h"
#include "platform/linux/sleep/ClosedLidFactsReader.h"
#include "platform/linux/sleep/UserLock.h"

#include <memory>

namespace Tarvik {

/// One attempt to have logind and the desktop leave a closed lid alone: by a lock of our own where that is enough and
/// logind grants it, else by one of root's.
class OverrideTaking final {
public:
    /// `clock` must outlive the object and the override.
    OverrideTaking(QDBusConnection systemBus, QDBusConnection sessionBus, Clock& clock, QStringList programDirectories);

    /// `done` is called later, once, and may destroy the object.
    void start(SleepControl::OverrideReceiver done);

private:
    void choose(const std::optional<ClosedLidFacts>& facts);
    void takeUserLock();
    void takeAdministratorLock();
    void finish(std::unique_ptr<SleepOverride> sleepOverride, const QString& error);

    QDBusConnection m_systemBus;
    QDBusConnection m_sessionBus;
    Clock& m_clock;
    QStringList m_programDirectories;
    SleepControl::OverrideReceiver m_done;
    ClosedLidFacts m_facts;
    ClosedLidFactsReader m_reader;
    std::unique_ptr<UserLock> m_userLock;
    std::unique_ptr<AdministratorLock> m_administratorLock;
};

} // namespace Tarvik
