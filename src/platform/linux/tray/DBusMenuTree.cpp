// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/tray/DBusMenuTree.h"

#include <algorithm>

namespace Tarvik::DBusMenuTree {

using namespace Qt::StringLiterals;

namespace {

QString escapedLabel(QString label)
{
    // A single underscore would mark the key that chooses the entry.
    return label.replace(u'_', "__"_L1);
}

QVariantMap allProperties(const TrayMenuEntry& entry)
{
    if (entry.isSeparator)
        return {{u"type"_s, u"separator"_s}};
    QVariantMap all;
    if (entry.id != rootId) {
        all[u"label"_s] = escapedLabel(entry.label);
        all[u"enabled"_s] = entry.isEnabled;
    }
    if (entry.isChecked) {
        all[u"toggle-type"_s] = u"checkmark"_s;
        all[u"toggle-state"_s] = *entry.isChecked ? 1 : 0;
    }
    if (entry.id == rootId || !entry.entries.empty())
        all[u"children-display"_s] = u"submenu"_s;
    return all;
}

} // namespace

TrayMenuEntry rootOf(const TrayMenu& menu)
{
    TrayMenuEntry root;
    root.id = rootId;
    root.entries = menu;
    return root;
}

const TrayMenuEntry* find(const TrayMenuEntry& entry, int id)
{
    if (entry.id == id)
        return &entry;
    for (const TrayMenuEntry& child : entry.entries) {
        if (const TrayMenuEntry* found = find(child, id))
            return found;
    }
    return nullptr;
}

QVariantMap properties(const TrayMenuEntry& entry, const QStringList& names)
{
    QVariantMap wanted = allProperties(entry);
    if (!names.isEmpty())
        wanted.removeIf([&](const QVariantMap::iterator& property) { return !names.contains(property.key()); });
    return wanted;
}

DBusMenuLayoutItem layout(const TrayMenuEntry& entry, int depth, const QStringList& names)
{
    DBusMenuLayoutItem item{entry.id, properties(entry, names), {}};
    if (depth == 0)
        return item;
    for (const TrayMenuEntry& child : entry.entries)
        item.children.append(layout(child, depth < 0 ? depth : depth - 1, names));
    return item;
}

QList<DBusMenuItem> flattened(const TrayMenuEntry& entry, const QStringList& names)
{
    QList<DBusMenuItem> items{{entry.id, properties(entry, names)}};
    for (const TrayMenuEntry& child : entry.entries)
        items.append(flattened(child, names));
    return items;
}

bool haveSameShape(const TrayMenuEntry& first, const TrayMenuEntry& second)
{
    return first.id == second.id && std::ranges::equal(first.entries, second.entries, haveSameShape);
}

PropertyChanges changes(const TrayMenuEntry& before, const TrayMenuEntry& after)
{
    PropertyChanges changes;
    const QList<DBusMenuItem> were = flattened(before);
    const QList<DBusMenuItem> are = flattened(after);
    for (qsizetype i = 0; i < are.size(); ++i) {
        DBusMenuItem updated{are[i].id, are[i].properties};
        updated.properties.removeIf([&](const QVariantMap::iterator& property) {
            return were[i].properties.value(property.key()) == property.value();
        });
        if (!updated.properties.isEmpty())
            changes.updated.append(updated);
        DBusMenuItemKeys removed{are[i].id, {}};
        for (const QString& name : were[i].properties.keys()) {
            if (!are[i].properties.contains(name))
                removed.properties.append(name);
        }
        if (!removed.properties.isEmpty())
            changes.removed.append(removed);
    }
    return changes;
}

} // namespace Tarvik::DBusMenuTree
