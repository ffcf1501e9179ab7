// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/FileFilter.h"

#include <QDBusMetaType>

namespace Tarvik {

QDBusArgument& operator<<(QDBusArgument& argument, const FilePattern& pattern)
{
    argument.beginStructure();
    argument << pattern.kind << pattern.pattern;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, FilePattern& pattern)
{
    argument.beginStructure();
    argument >> pattern.kind >> pattern.pattern;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const FileFilter& filter)
{
    argument.beginStructure();
    argument << filter.name << filter.patterns;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, FileFilter& filter)
{
    argument.beginStructure();
    argument >> filter.name >> filter.patterns;
    argument.endStructure();
    return argument;
}

void registerFileFilters()
{
    qDBusRegisterMetaType<FilePattern>();
    qDBusRegisterMetaType<QList<FilePattern>>();
    qDBusRegisterMetaType<FileFilter>();
    qDBusRegisterMetaType<FileFilters>();
}

} // namespace Tarvik
