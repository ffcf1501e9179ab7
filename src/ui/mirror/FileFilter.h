// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>
#include <QList>
#include <QString>

namespace Tarvik {

/// Which files match, of org.freedesktop.portal.FileChooser, (us).
struct FilePattern {
    static constexpr uint glob = 0;

    uint kind = glob;
    QString pattern;
};

/// A choice of files for the user, (sa(us)).
struct FileFilter {
    QString name;
    QList<FilePattern> patterns;
};

using FileFilters = QList<FileFilter>;

QDBusArgument& operator<<(QDBusArgument& argument, const FilePattern& pattern);
const QDBusArgument& operator>>(const QDBusArgument& argument, FilePattern& pattern);
QDBusArgument& operator<<(QDBusArgument& argument, const FileFilter& filter);
const QDBusArgument& operator>>(const QDBusArgument& argument, FileFilter& filter);

/// Makes lists of filters known to QtDBus. Before one is sent or received.
void registerFileFilters();

} // namespace Tarvik

Q_DECLARE_METATYPE(Tarvik::FilePattern)
Q_DECLARE_METATYPE(Tarvik::FileFilter)
