// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RunningApplications.h"

namespace Tarvik {

/// Running applications as the test lists them.
class FakeRunningApplications final : public RunningApplications {
public:
    QList<RunningApplication> list() const override { return running; }

    void set(const QList<RunningApplication>& applications)
    {
        running = applications;
        changed();
    }

    QList<RunningApplication> running;
};

} // namespace Tarvik
