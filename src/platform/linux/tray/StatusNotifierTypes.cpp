// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/tray/StatusNotifierTypes.h"

#include <QDBusMetaType>
#include <QDir>

#include <algorithm>
#include <optional>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

/// No bar is that high; a larger file is none of ours.
constexpr int maximumSize = 256;

std::optional<StatusNotifierPixmap> loadPixmap(const QString& path, int size)
{
    constexpr qint64 bytesPerPixel = 4;
    QFile file(path);
    if (size < 1 || size > maximumSize || file.size() != size * size * bytesPerPixel || !file.open(QFile::ReadOnly))
        return {};
    return StatusNotifierPixmap{size, size, file.readAll()};
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierPixmap& pixmap)
{
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.bytes;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierPixmap& pixmap)
{
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.bytes;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierToolTip& toolTip)
{
    argument.beginStructure();
    argument << toolTip.iconName << toolTip.iconPixmap << toolTip.title << toolTip.description;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierToolTip& toolTip)
{
    argument.beginStructure();
    argument >> toolTip.iconName >> toolTip.iconPixmap >> toolTip.title >> toolTip.description;
    argument.endStructure();
    return argument;
}

void registerStatusNotifierTypes()
{
    qDBusRegisterMetaType<StatusNotifierPixmap>();
    qDBusRegisterMetaType<QList<StatusNotifierPixmap>>();
    qDBusRegisterMetaType<StatusNotifierToolTip>();
}

QList<StatusNotifierPixmap> loadPixmaps(const QString& directory, const QString& name)
{
    const QString prefix = name + u'-';
    const QString suffix = u".argb"_s;
    QList<StatusNotifierPixmap> pixmaps;
    const QDir folder(directory);
    for (const QString& file : folder.entryList({prefix + u'*' + suffix}, QDir::Files)) {
        const int size = file.sliced(prefix.size()).chopped(suffix.size()).toInt();
        if (const auto pixmap = loadPixmap(folder.filePath(file), size))
            pixmaps.append(*pixmap);
    }
    std::ranges::sort(pixmaps, {}, &StatusNotifierPixmap::width);
    return pixmaps;
}

} // namespace Tarvik
