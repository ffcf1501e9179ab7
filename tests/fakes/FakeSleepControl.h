// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SleepControl.h"

#include <QStringList>

#include <utility>

namespace Tarvik {

/// The machine's sleep, in the hands of an administrator who answers when the test says so. `calls` tells, in order,
/// what was asked for and when an override was taken back.
class FakeSleepControl final : public SleepControl {
public:
    void takeOverride(OverrideReceiver done) override
    {
        calls.append(QStringLiteral("ask"));
        m_done = std::move(done);
    }

    void sleepForClosedLid() override { calls.append(QStringLiteral("sleep")); }

    void grant() { answer(std::make_unique<Override>(*this), {}); }
    void refuse(const QString& error) { answer({}, error); }

    /// The system takes the override back.
    void lose() const { m_override->onLost(); }

    bool isPromptOpen() const { return m_done != nullptr; }
    bool isOverridden() const { return m_override != nullptr; }

    QStringList calls;

private:
    struct Override final : SleepOverride {
        explicit Override(FakeSleepControl& creator)
            : owner(creator)
        {
            owner.m_override = this;
        }
        ~Override() override
        {
            owner.m_override = nullptr;
            owner.calls.append(QStringLiteral("end"));
        }
        Override(const Override&) = delete;
        Override& operator=(const Override&) = delete;

        FakeSleepControl& owner;
    };

    void answer(std::unique_ptr<SleepOverride> granted, const QString& error)
    {
        if (!m_done)
            qFatal("nobody has been asked");
        std::exchange(m_done, nullptr)(std::move(granted), error);
    }

    OverrideReceiver m_done;
    Override* m_override = nullptr;
};

} // namespace Tarvik
