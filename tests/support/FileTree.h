// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace Tarvik {

/// A directory tree that stands in for /sys or /proc.
class FileTree {
public:
    QString root() const { return m_directory.path(); }

    void write(const QString& path, const QByteArray& content) const
    {
        const QString absolute = prepare(path);
        QFile file{absolute};
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(absolute));
    }

    /// A file whose opening succeeds and whose reading fails.
    void breakFile(const QString& path) const
    {
        const QString absolute = prepare(path);
        QFile::remove(absolute);
        // Nothing is mapped at address 0.
        if (!QFile::link(QStringLiteral("/proc/self/mem"), absolute))
            qFatal("cannot link %s", qPrintable(absolute));
    }

    void makeDirectory(const QString& path) const { QDir{root()}.mkpath(path); }
    void link(const QString& target, const QString& path) const { QFile::link(root() + u'/' + target, prepare(path)); }
    void remove(const QString& path) const
    {
        if (!QFile::remove(root() + u'/' + path))
            QDir{root() + u'/' + path}.removeRecursively();
    }

private:
    QString prepare(const QString& path) const
    {
        makeDirectory(path.section(u'/', 0, -2));
        return root() + u'/' + path;
    }

    QTemporaryDir m_directory;
};

} // namespace Tarvik
