// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>
#include <QList>

namespace Tarvik {

/// A picture for trays that do not load icons themselves: (iiay), ARGB32 in network byte order, row after row.
struct StatusNotifierPixmap {
    int width = 0;
    int height = 0;
    QByteArray bytes;
};

/// (sa(iiay)ss). The description may hold markup, the title may not.
struct StatusNotifierToolTip {
    QString iconName;
    QList<StatusNotifierPixmap> iconPixmap;
    QString title;
    QString description;
};

QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierToolTip& toolTip);

/// To be called before any of the types crosses the bus; more than once does no harm.
void registerStatusNotifierTypes();

/// The pictures of one icon: the files "NAME-SIZE.argb" in `directory`, each a square, by size. A file that is no
/// square is left out.
QList<StatusNotifierPixmap> loadPixmaps(const QString& directory, const QString& name);

} // namespace Tarvik

Q_DECLARE_METATYPE(Tarvik::StatusNotifierPixmap)
Q_DECLARE_METATYPE(Tarvik::StatusNotifierToolTip)
