// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace Tarvik {

/// One entry of the menu behind the item in the tray, with everything below it.
struct TrayMenuEntry {
    /// Tells the entries of one menu apart and stays the same when the menu changes: positive and unique in the menu.
    int id = 0;
    /// Plain text. Empty for a separator.
    QString label;
    bool isSeparator = false;
    bool isEnabled = true;
    /// Absent for an entry that cannot be checked.
    std::optional<bool> isChecked;
    /// A submenu opens where there are any.
    std::vector<TrayMenuEntry> entries;

    bool operator==(const TrayMenuEntry&) const = default;
};

using TrayMenu = std::vector<TrayMenuEntry>;

} // namespace Tarvik
