// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "updates/Upgrade.h"

#include "core/Logging.h"
#include "platform/ProgramFile.h"

#include <utility>

namespace Tarvik {

Upgrade::Upgrade(ProgramFile& program, Clock& clock, Actions actions)
    : m_program(program)
    , m_clock(clock)
    , m_actions(std::move(actions))
    , m_changes(program.changed.subscribe([this] { noticeChange(); }))
{
}

void Upgrade::noticeChange()
{
    m_waiting.reset();
    m_settling = m_clock.after(settleTime, [this] { settle(); });
}

void Upgrade::settle()
{
    m_settling.reset();
    const bool isReplaced = m_program.isReplaced();
    if (std::exchange(m_isPending, isReplaced) != isReplaced) {
        if (isReplaced)
            qCInfo(logSystem, "Another build was installed; restarting into it when nothing is held");
        pendingChanged();
    }
    reconsider();
}

bool Upgrade::mayRestart() const
{
    return m_isPending && !m_settling && m_actions.isIdle();
}

void Upgrade::reconsider()
{
    if (!mayRestart())
        m_waiting.reset();
    else if (!m_waiting && !m_isChecking)
        wait(calmTime);
}

void Upgrade::wait(Seconds pause)
{
    m_waiting = m_clock.after(pause, [this] { check(); });
}

void Upgrade::check()
{
    m_waiting.reset();
    if (!mayRestart())
        return;
    m_isChecking = true;
    m_program.check([this](bool wouldStart) {
        m_isChecking = false;
        if (!mayRestart())
            return;
        if (wouldStart)
            m_actions.restart();
        else
            wait(retryPause);
    });
}

} // namespace Tarvik
