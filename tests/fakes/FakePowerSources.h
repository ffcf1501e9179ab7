// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PowerSources.h"

namespace Tarvik {

/// A machine whose power sources a test writes down.
class FakePowerSources final : public PowerSources {
public:
    std::optional<PowerSourcesSnapshot> snapshot() const override { return current; }

    /// Announces a change, whether or not there was one.
    void announce() const { changed(); }

    std::optional<PowerSourcesSnapshot> current;
};

} // namespace Tarvik
