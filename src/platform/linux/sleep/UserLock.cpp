// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/UserLock.h"

#include "dbus/BusNames.h"

#include <algorithm>
#include <utility>

namespace Tarvik {

UserLock::UserLock(const QDBusConnection& systemBus, const InhibitorRequest& request, Clock& clock)
    : m_clock(clock)
    , m_logind(systemBus, {BusNames::logind})
    , m_inhibitor(systemBus, request, clock, [this] { tell(); })
{
    m_logind.onKnown = [this] {
        if (m_logind.isOwned(BusNames::logind))
            m_inhibitor.setOwner(m_logind.owner(BusNames::logind));
        else if (const auto done = std::exchange(m_done, {}))
            done(false);
    };
    m_logind.onOwnerChange = [this](const QString& name) { m_inhibitor.setOwner(m_logind.owner(name)); };
}

void UserLock::take(std::function<void(bool isGranted)> done)
{
    m_done = std::move(done);
}

void UserLock::yieldTo(const QDBusConnection& sessionBus, const QStringList& names)
{
    const auto look = [this, names] {
        // Whoever is told may destroy this, which the watch would not survive.
        if (std::ranges::any_of(names, [this](const QString& name) { return m_daemons->isOwned(name); }))
            m_loss = m_clock.after(Seconds::zero(), [this] { lose(); });
    };
    m_daemons.emplace(sessionBus, names);
    m_daemons->onKnown = look;
    m_daemons->onOwnerChange = [look](const QString&) { look(); };
}

void UserLock::tell()
{
    const Inhibitor::State state = m_inhibitor.state();
    if (state != Inhibitor::State::effective && state != Inhibitor::State::refused)
        return;
    const bool isGranted = state == Inhibitor::State::effective;
    if (const auto done = std::exchange(m_done, {}))
        done(isGranted);
    else if (!isGranted)
        lose();
}

void UserLock::lose()
{
    if (const auto lost = std::exchange(onLost, {}))
        lost();
}

} // namespace Tarvik
