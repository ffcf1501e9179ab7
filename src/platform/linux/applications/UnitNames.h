// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace Tarvik::UnitNames {

/// The desktop-file id, without ".desktop", of the application that a unit of the systemd user manager runs, by the
/// naming rules for desktop environments of systemd.io and of snap; nothing for any other unit. The id need not exist.
std::optional<QString> desktopId(const QString& unitName);

/// Undoes the escapes of unit names ("\x2d"), systemd.unit(5). Malformed escapes stay as they are.
QString unescaped(const QString& text);

} // namespace Tarvik::UnitNames
