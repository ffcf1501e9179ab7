// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PowerAssertions.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace Tarvik {

/// Assertions in memory. `calls` tells what was created and released, in order.
class FakePowerAssertions final : public PowerAssertions {
public:
    std::unique_ptr<PowerAssertion> create(PowerAssertionType type, const QString& name) override
    {
        calls.append(QStringLiteral("create ") + powerAssertionTypeName(type) + u' ' + name);
        auto assertion = std::make_unique<Held>(*this, type);
        if (failWith) {
            assertion->code = failWith;
            failed(type, *failWith);
        }
        return assertion;
    }

    QList<PowerAssertionHold> holds() const override
    {
        QList<PowerAssertionHold> list;
        for (const Held* assertion : m_held)
            list.append(
                {.type = assertion->type, .service = QStringLiteral("fake"), .what = {}, .effective = isConfirmed});
        return list;
    }

    bool isSystemHeld() const { return isHeld(PowerAssertionType::preventUserIdleSystemSleep); }
    bool isDisplayHeld() const { return isHeld(PowerAssertionType::preventUserIdleDisplaySleep); }

    QStringList calls;
    /// Whether the service has confirmed what is held.
    bool isConfirmed = true;
    /// While set, what is created fails with this code.
    std::optional<int> failWith;

private:
    struct Held final : PowerAssertion {
        Held(FakePowerAssertions& creator, PowerAssertionType heldType)
            : owner(creator)
            , type(heldType)
        {
            owner.m_held.push_back(this);
        }
        ~Held() override
        {
            std::erase(owner.m_held, this);
            owner.calls.append(QStringLiteral("release ") + powerAssertionTypeName(type));
        }
        Held(const Held&) = delete;
        Held& operator=(const Held&) = delete;

        std::optional<int> failure() const override { return code; }

        FakePowerAssertions& owner;
        PowerAssertionType type;
        std::optional<int> code;
    };

    bool isHeld(PowerAssertionType type) const
    {
        return std::ranges::any_of(m_held, [&](const Held* held) { return held->type == type && !held->code; });
    }

    std::vector<Held*> m_held;
};

} // namespace Tarvik
