// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/idle/KdeConfig.h"

#include <QFile>

namespace Tarvik::KdeConfig {

namespace {

/// Such files have some kilobytes.
constexpr qint64 maximumBytes = qint64{1024} * 1024;

std::optional<QString> valueIn(const QByteArray& bytes, const QString& group, const QString& key)
{
    std::optional<QString> value;
    bool isInGroup = false;
    for (const QByteArray& bytesOfLine : bytes.split('\n')) {
        const QString line = QString::fromUtf8(bytesOfLine).trimmed();
        if (line.startsWith(u'['))
            isInGroup = line == group;
        else if (isInGroup && line.section(u'=', 0, 0).trimmed() == key)
            value = line.section(u'=', 1).trimmed();
    }
    return value;
}

} // namespace

std::optional<int> number(const QStringList& files, const QString& group, const QString& key)
{
    for (const QString& name : files) {
        QFile file(name);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        bool isNumber = false;
        const int number = valueIn(file.read(maximumBytes), group, key).value_or(QString()).toInt(&isNumber);
        if (isNumber)
            return number;
    }
    return {};
}

} // namespace Tarvik::KdeConfig
