// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SleepHistory.h"

#include <QObject>
#include <QTimer>

#include <utility>

namespace Tarvik {

/// Sleeps that the test names, told with the next turn of the event loop.
class FakeSleepHistory final : public SleepHistory {
public:
    void read(std::function<void(const std::optional<QList<PastSleep>>&)> done) override
    {
        ++questions;
        QTimer::singleShot(0, &m_context, [this, done = std::move(done)] { done(current); });
    }

    std::optional<QList<PastSleep>> current;
    int questions = 0;

private:
    QObject m_context;
};

} // namespace Tarvik
