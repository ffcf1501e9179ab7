// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AppBundle.h"

namespace Tarvik {

/// The bundle that holds the running executable, which lies in its Contents/Linux; the release is the one it was built
/// as.
AppBundle installedAppBundle();

} // namespace Tarvik
