// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UiLauncher.h"

namespace Tarvik {

/// Counts how often the UI process was to be started and to be killed.
class FakeUiLauncher final : public UiLauncher {
public:
    bool isInstalled() const override { return isThere; }
    void launch() override { ++launches; }
    void kill() override { ++kills; }

    void end(const QString& failure) { ended(failure); }

    bool isThere = true;
    int launches = 0;
    int kills = 0;
};

} // namespace Tarvik
