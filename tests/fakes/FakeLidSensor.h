// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LidSensor.h"

namespace Tarvik {

/// A lid that a test opens and closes.
class FakeLidSensor final : public LidSensor {
public:
    std::optional<bool> isPresent() const override { return present; }

    std::optional<bool> isClosed() override
    {
        ++reads;
        return closed;
    }

    /// Announces a change, as a sensor may that need not be asked.
    void announce() const { changed(); }

    void setPresent(bool isPresent)
    {
        present = isPresent;
        presenceChanged();
    }

    std::optional<bool> present;
    std::optional<bool> closed;
    int reads = 0;
};

} // namespace Tarvik
