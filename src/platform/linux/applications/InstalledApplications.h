// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/AllowlistedApp.h"

namespace Tarvik {

/// Every application that the desktop would show in its menu and that has a desktop-file id, as GIO knows them, by
/// name. Names lose every ".app". Reads all desktop files: some ten milliseconds, and memory that stays with the
/// process.
QList<AllowlistedApp> installedApplications();

} // namespace Tarvik
