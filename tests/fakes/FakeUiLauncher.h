// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UiLauncher.h"

namespace Tarvik {

/// Counts how often the windows' process was to be started.
class FakeUiLauncher final : public UiLauncher {
public:
    void launch() override { ++launches; }

    void end(const QString& failure) { onEnd(failure); }

    int launches = 0;
};

} // namespace Tarvik
