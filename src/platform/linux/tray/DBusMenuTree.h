// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/TrayMenu.h"
#include "platform/linux/tray/DBusMenuTypes.h"

/// A menu as com.canonical.dbusmenu sees it: a tree below a root of its own, entry 0.
namespace Tarvik::DBusMenuTree {

inline constexpr int rootId = 0;

/// The root entry with `menu` below it.
TrayMenuEntry rootOf(const TrayMenu& menu);

/// The entry with this `id` at or below `entry`; null where there is none.
const TrayMenuEntry* find(const TrayMenuEntry& entry, int id);

/// The properties that `entry` has; of those, only the ones listed in `names` unless that is empty.
QVariantMap properties(const TrayMenuEntry& entry, const QStringList& names = {});

/// `entry` with `depth` levels below it, all of them when `depth` is -1.
DBusMenuLayoutItem layout(const TrayMenuEntry& entry, int depth, const QStringList& names);

/// Every entry at and below `entry`, depth first.
QList<DBusMenuItem> flattened(const TrayMenuEntry& entry, const QStringList& names = {});

/// Both trees have the same entries in the same places; what they look like does not count.
bool haveSameShape(const TrayMenuEntry& first, const TrayMenuEntry& second);

/// What has to be told about properties when `after` takes the place of `before`, which has the same shape.
struct PropertyChanges {
    QList<DBusMenuItem> updated;
    QList<DBusMenuItemKeys> removed;

    bool isEmpty() const { return updated.isEmpty() && removed.isEmpty(); }
};
PropertyChanges changes(const TrayMenuEntry& before, const TrayMenuEntry& after);

} // namespace Tarvik::DBusMenuTree
