// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>
#include <QList>
#include <QVariantMap>

namespace Tarvik {

/// One shortcut as org.freedesktop.portal.GlobalShortcuts sends it, (sa{sv}).
struct PortalShortcut {
    QString name;
    QVariantMap properties;
};

using PortalShortcutList = QList<PortalShortcut>;

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut);

/// Makes the list known to QtDBus. Once, before it is sent.
void registerPortalShortcuts();

} // namespace Tarvik

Q_DECLARE_METATYPE(Tarvik::PortalShortcut)
