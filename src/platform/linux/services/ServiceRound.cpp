// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/services/ServiceRound.h"

#include <utility>

namespace Tarvik {

ServiceRound::ServiceRound(Bus system, Bus session, Clock& clock, std::function<void()> ask, std::function<void()> end)
    : m_systemBus(system.connection)
    , m_sessionBus(session.connection)
    , m_ask(std::move(ask))
    , m_end(std::move(end))
    , m_systemNames(m_systemBus, system.names)
    , m_sessionNames(m_sessionBus, session.names)
    , m_patience(clock.after(patience, [this] { this->end(); }))
{
    m_systemNames.onKnown = [this] { start(); };
    m_sessionNames.onKnown = [this] { start(); };
    // A bus without connection does not say that its names are known.
    if (m_systemNames.isKnown() && m_sessionNames.isKnown())
        m_start = clock.after(Seconds::zero(), [this] { start(); });
}

void ServiceRound::start()
{
    if (!m_systemNames.isKnown() || !m_sessionNames.isKnown())
        return;
    m_ask();
    if (m_calls.isEmpty())
        end();
}

void ServiceRound::send(const QDBusConnection& bus, const QDBusMessage& question, Take take)
{
    m_calls.send(bus, question, [this, take = std::move(take)](const QDBusMessage& answer) {
        take(answer);
        if (m_calls.isEmpty())
            end();
    });
}

void ServiceRound::end()
{
    // It may destroy this.
    const auto receiver = m_end;
    receiver();
}

} // namespace Tarvik
