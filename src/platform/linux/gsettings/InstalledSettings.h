// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Releaser.h"

#include <gio/gio.h>

namespace Tarvik {

/// GSettings, which end the program when they are asked for a schema or a key that is not installed.
namespace InstalledSettings {

using Pointer = Owned<GSettings, g_object_unref>;

/// The settings of that schema; null when it is not installed. `path` is for those that can be moved.
Pointer open(const char* schemaId, const char* path = nullptr);

/// Whether its schema has that key.
bool hasKey(GSettings* settings, const char* key);

} // namespace InstalledSettings

} // namespace Tarvik
