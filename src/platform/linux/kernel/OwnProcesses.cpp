// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/OwnProcesses.h"

#include "platform/linux/kernel/SysfsFile.h"

#include <QDir>
#include <QFileInfo>

#include <unistd.h>

namespace Tarvik::OwnProcesses {

using namespace Qt::StringLiterals;

QString name(qint64 process)
{
    return QString::fromUtf8(SysfsFile::text(u"/proc/%1/comm"_s.arg(process)).value_or(QByteArray()));
}

QStringList names()
{
    QStringList names;
    const QFileInfoList entries = QDir(u"/proc"_s).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QFileInfo& entry : entries) {
        bool isProcess = false;
        const qint64 process = entry.fileName().toLongLong(&isProcess);
        if (!isProcess || entry.ownerId() != getuid())
            continue;
        if (const QString name = OwnProcesses::name(process); !name.isEmpty())
            names.append(name);
    }
    return names;
}

} // namespace Tarvik::OwnProcesses
