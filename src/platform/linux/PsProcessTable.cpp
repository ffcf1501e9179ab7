// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/PsProcessTable.h"

#include "platform/linux/PsProcess.h"

#include <QSocketNotifier>

#include <algorithm>
#include <chrono>
#include <utility>

namespace Tarvik {

using namespace std::chrono_literals;

namespace {

/// Long enough for a usual listing to end first, so that it costs no wake-up.
constexpr Seconds firstDrainDelay = 100ms;
/// While the child waits for room in the pipe.
constexpr Seconds busyDrainDelay = 5ms;
/// While the child hangs.
constexpr Seconds longestDrainDelay = 5s;

} // namespace

PsProcessTable::PsProcessTable(Clock& clock, std::string executable)
    : m_clock(clock)
    , m_executable(std::move(executable))
{
}

PsProcessTable::~PsProcessTable() = default;

void PsProcessTable::read(Receiver receiver)
{
    Q_ASSERT(!m_receiver);
    m_receiver = std::move(receiver);
    m_process = PsProcess::start(m_executable, maximumBytes);
    if (m_process == nullptr) {
        // Not by the clock: what is lacking may be a descriptor, and a timer needs one too.
        QMetaObject::invokeMethod(
            &m_context,
            [this] {
                if (m_receiver && m_process == nullptr)
                    finish(false);
            },
            Qt::QueuedConnection);
        return;
    }

    m_exitNotifier = std::make_unique<QSocketNotifier>(m_process->endDescriptor(), QSocketNotifier::Read);
    QObject::connect(m_exitNotifier.get(), &QSocketNotifier::activated, m_exitNotifier.get(), [this] { conclude(); });
    m_drainDelay = firstDrainDelay;
    m_remaining = longestListing;
    drainLater();
}

bool PsProcessTable::wait(Seconds patience)
{
    if (m_process == nullptr) {
        finish(false);
        return true;
    }
    const auto end = std::chrono::steady_clock::now() + patience;
    do {
        if (m_process->awaitEnd(std::chrono::ceil<std::chrono::milliseconds>(busyDrainDelay))) {
            conclude();
            return true;
        }
        if (!m_process->readAvailable()) {
            finish(false);
            return true;
        }
    } while (std::chrono::steady_clock::now() < end);
    return false;
}

void PsProcessTable::drainLater()
{
    m_drainDelay = std::min(m_drainDelay, m_remaining);
    m_remaining -= m_drainDelay;
    m_drainTimer = m_clock.after(m_drainDelay, [this] { drain(); });
}

void PsProcessTable::drain()
{
    const qsizetype before = m_process->output().size();
    if (!m_process->readAvailable() || m_remaining <= Seconds::zero()) {
        finish(false);
        return;
    }
    const bool busy = m_process->output().size() > before;
    m_drainDelay = busy ? busyDrainDelay : std::min(m_drainDelay * 2, longestDrainDelay);
    drainLater();
}

/// The child has ended.
void PsProcessTable::conclude()
{
    const bool complete = m_process->readAvailable();
    finish(m_process->reap() && complete);
}

void PsProcessTable::finish(bool complete)
{
    m_drainTimer.reset();
    if (m_exitNotifier != nullptr) {
        m_exitNotifier->setEnabled(false);
        // It may be the sender of the call that led here.
        m_exitNotifier.release()->deleteLater();
    }
    const auto process = std::move(m_process);
    // The receiver may start the next listing or destroy this table.
    const Receiver receiver = std::exchange(m_receiver, {});
    receiver(complete ? process->output() : QByteArray());
}

} // namespace Tarvik
