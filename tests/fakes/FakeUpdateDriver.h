// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UpdateDriver.h"

#include <utility>
#include <vector>

namespace Tarvik {

/// Updates that come when a test says so.
class FakeUpdateDriver final : public UpdateDriver {
public:
    void prepare() override { ++preparations; }
    bool isAvailable() const override { return available; }
    void start(Task task, Initiator initiator) override { started.emplace_back(task, initiator); }

    void becomeAvailable()
    {
        available = true;
        availabilityChanged();
    }

    void finish(bool hasChecked) const { finished(hasChecked); }

    bool available = false;
    int preparations = 0;
    std::vector<std::pair<Task, Initiator>> started;
};

} // namespace Tarvik
