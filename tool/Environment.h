// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

namespace Tarvik {

/// Answers an environment variable's value; empty when it is not set.
using Environment = std::function<std::string(const char* name)>;

/// The variables of this process.
Environment processEnvironment();

} // namespace Tarvik
