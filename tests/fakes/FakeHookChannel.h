// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HookChannel.h"

namespace Tarvik {

/// A channel on which the test itself announces.
class FakeHookChannel final : public HookChannel {
public:
    void announce(const Payload& payload) const { announced(payload); }
};

} // namespace Tarvik
