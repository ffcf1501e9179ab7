// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/IdleSleep.h"

#include <QObject>
#include <QTimer>

#include <utility>

namespace Tarvik {

/// Rules that the test names, told with the next turn of the event loop.
class FakeIdleSleep final : public IdleSleep {
public:
    void read(std::function<void(const QList<IdleSleepRule>&)> done) override
    {
        ++questions;
        QTimer::singleShot(0, &m_context, [this, done = std::move(done)] { done(current); });
    }

    QList<IdleSleepRule> current;
    int questions = 0;

private:
    QObject m_context;
};

} // namespace Tarvik
