// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Reads attributes as the kernel offers them in sysfs(5) and procfs: small, and at any time an error.
namespace Tarvik::SysfsFile {

/// The beginning of the file without white space at its ends, at most 255 bytes; nothing when it cannot be read.
std::optional<QByteArray> text(const QString& path);

/// The decimal number that the file consists of; nothing when it is anything else.
std::optional<qint64> integer(const QString& path);

} // namespace Tarvik::SysfsFile
