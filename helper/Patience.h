// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace Tarvik {

/// For the answer of another service. A call needs two of them, polkit and logind, and its caller waits 6 seconds.
inline constexpr std::chrono::milliseconds servicePatience{2500};
/// For somebody who types a password.
inline constexpr std::chrono::minutes userPatience{2};

} // namespace Tarvik
