// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "Environment.h"

#include <cstdlib>

namespace Tarvik {

Environment processEnvironment()
{
    return [](const char* name) {
        const char* const value = std::getenv(name);
        return std::string(value ? value : "");
    };
}

} // namespace Tarvik
