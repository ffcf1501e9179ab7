// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/InstalledApplication.h"

#include <QList>

#include <optional>

namespace Tarvik {

/// Every application that the desktop would show in its menu and that has a desktop-file id, as GIO knows them, in no
/// order. Reads all desktop files: some ten milliseconds, and memory that stays with the process.
QList<InstalledApplication> installedApplications();

/// The application of a desktop file (absolute path), also of one that no menu shows. Its id is the one by which the
/// desktop knows it: from its place below a data directory, elsewhere the file's name. Nothing where the file is none
/// of an application that can be started.
std::optional<InstalledApplication> applicationOfFile(const QString& path);

} // namespace Tarvik
