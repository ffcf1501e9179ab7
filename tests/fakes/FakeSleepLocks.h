// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SleepLocks.h"

#include <QObject>
#include <QTimer>

#include <utility>

namespace Tarvik {

/// Locks that the test names, told with the next turn of the event loop.
class FakeSleepLocks final : public SleepLocks {
public:
    /// A lock of another program.
    static SleepLock lock(const QString& program,
        const QString& service,
        SleepLockEffects effects,
        const QString& reason = {},
        std::optional<qint64> process = {})
    {
        return {.program = program,
            .reason = reason,
            .service = service,
            .effects = effects,
            .process = process,
            .isOurs = false};
    }

    static SleepLock ours(const QString& service, SleepLockEffects effects, std::optional<qint64> process = {})
    {
        SleepLock result = lock(QStringLiteral("Tarvik"), service, effects, {}, process);
        result.isOurs = true;
        return result;
    }

    void list(std::function<void(const SleepLockList&)> done) override
    {
        ++questions;
        QTimer::singleShot(0, &m_context, [this, done = std::move(done)] { done(current); });
    }

    SleepLockList current;
    int questions = 0;

private:
    QObject m_context;
};

} // namespace Tarvik
