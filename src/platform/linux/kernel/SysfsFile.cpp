// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/SysfsFile.h"

#include "base/FileDescriptor.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

#include <array>

namespace Tarvik::SysfsFile {

std::optional<QByteArray> text(const QString& path)
{
    const FileDescriptor file{open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)};
    if (!file.isValid())
        return {};
    std::array<char, 255> buffer{};
    const ssize_t length = read(file.get(), buffer.data(), buffer.size());
    if (length < 0)
        return {};
    return QByteArray{buffer.data(), length}.trimmed();
}

std::optional<qint64> integer(const QString& path)
{
    const auto content = text(path);
    if (!content)
        return {};
    bool isNumber = false;
    const qint64 number = content->toLongLong(&isNumber);
    return isNumber ? std::optional{number} : std::nullopt;
}

} // namespace Tarvik::SysfsFile
