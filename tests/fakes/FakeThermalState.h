// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ThermalState.h"

namespace Tarvik {

/// A machine that is as hot as a test says.
class FakeThermalState final : public ThermalState {
public:
    ThermalLevel level() const override { return current; }

    /// Announces a state, whether or not it changed.
    void announce() const { changed(); }

    ThermalLevel current = ThermalLevel::nominal;
};

} // namespace Tarvik
