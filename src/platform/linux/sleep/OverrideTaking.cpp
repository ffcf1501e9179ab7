// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/OverrideTaking.h"

#include "platform/linux/inhibitors/LidDaemons.h"
#include "platform/linux/inhibitors/LogindInhibitors.h"

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

InhibitorRequest lockRequest()
{
    // The lid stops logind, "sleep" the daemons that ask logind for it.
    return LogindInhibitors::request(u"handle-lid-switch:sleep"_s, u"Tarvik"_s, u"Lid-closed mode"_s);
}

} // namespace

OverrideTaking::OverrideTaking(
    QDBusConnection systemBus, QDBusConnection sessionBus, Clock& clock, QStringList programDirectories)
    : m_systemBus(std::move(systemBus))
    , m_sessionBus(std::move(sessionBus))
    , m_clock(clock)
    , m_programDirectories(std::move(programDirectories))
    , m_reader(m_systemBus, m_sessionBus)
{
}

void OverrideTaking::start(SleepControl::OverrideReceiver done)
{
    m_done = std::move(done);
    m_reader.read([this](const std::optional<ClosedLidFacts>& facts) { choose(facts); });
}

void OverrideTaking::choose(const std::optional<ClosedLidFacts>& facts)
{
    if (!facts) {
        finish(nullptr, u"logind does not answer"_s);
        return;
    }
    m_facts = *facts;
    if (ClosedLidRules::ownLockSuffices(m_facts))
        takeUserLock();
    else
        takeAdministratorLock();
}

void OverrideTaking::takeUserLock()
{
    m_userLock = std::make_unique<UserLock>(m_systemBus, lockRequest(), m_clock);
    m_userLock->take([this](bool isGranted) {
        if (!isGranted) {
            takeAdministratorLock();
            return;
        }
        ClosedLidFacts withDaemon = m_facts;
        withDaemon.hasLidDaemon = true;
        if (!ClosedLidRules::ownLockSuffices(withDaemon))
            m_userLock->yieldTo(m_sessionBus, LidDaemons::names());
        finish(std::move(m_userLock), {});
    });
}

void OverrideTaking::takeAdministratorLock()
{
    if (m_facts.systemdVersion == 0) {
        finish(nullptr, u"systemd, which would hold the lock, does not run this machine"_s);
        return;
    }
    m_administratorLock = std::make_unique<AdministratorLock>(m_systemBus, lockRequest(), m_programDirectories);
    m_administratorLock->take(
        [this](const QString& error) { finish(error.isEmpty() ? std::move(m_administratorLock) : nullptr, error); });
}

void OverrideTaking::finish(std::unique_ptr<SleepOverride> sleepOverride, const QString& error)
{
    const auto done = std::exchange(m_done, {});
    done(std::move(sleepOverride), error);
}

} // namespace Tarvik
