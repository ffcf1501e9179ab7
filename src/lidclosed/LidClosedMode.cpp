// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "lidclosed/LidClosedMode.h"

namespace Tarvik {

LidClosedMode::LidClosedMode() = default;

LidClosedMode::~LidClosedMode() = default;

} // namespace Tarvik
