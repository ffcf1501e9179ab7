// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "lidclosed/Heartbeat.h"

#include "lidclosed/HelperManager.h"

namespace Tarvik {

Heartbeat::Heartbeat(HelperManager& manager, Clock& clock)
    : m_manager(manager)
    , m_clock(clock)
{
}

void Heartbeat::start()
{
    stop();
    if (m_manager.status() != HelperStatus::enabled)
        return;
    beat();
    m_timer = m_clock.every(period, [this] {
        const Seconds gap = m_clock.now() - m_lastBeat;
        beat();
        if (gap > 2 * period)
            Q_EMIT late();
    });
}

void Heartbeat::beat()
{
    m_lastBeat = m_clock.now();
    if (HelperConnection* proxy = m_manager.proxy())
        proxy->heartbeat();
}

} // namespace Tarvik
