// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DisplayPower.h"

#include <QStringList>

#include <utility>

namespace Tarvik {

/// Displays whose `calls` tell what was done with them, in order.
class FakeDisplayPower final : public DisplayPower {
public:
    void sleepNow(std::function<void(const QString& error)> done) override
    {
        calls.append(QStringLiteral("sleep"));
        m_done = std::move(done);
    }

    void wake() override { calls.append(QStringLiteral("wake")); }

    /// The displays are off, or `error` says why not.
    void finish(const QString& error = {}) { std::exchange(m_done, nullptr)(error); }

    QStringList calls;

private:
    std::function<void(const QString& error)> m_done;
};

} // namespace Tarvik
