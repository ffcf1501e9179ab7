// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace Tarvik {

/// A data directory of its own for desktop files. One must live before a process first uses GIO, which reads the
/// places once.
class TemporaryDataHome {
public:
    TemporaryDataHome()
    {
        if (!m_directory.isValid() || !QDir(m_directory.path()).mkpath(QStringLiteral("home/applications/sub"))
            || !QDir(m_directory.path()).mkpath(QStringLiteral("system/applications")))
            qFatal("cannot create the data directories");
        qputenv("XDG_DATA_HOME", (m_directory.path() + QStringLiteral("/home")).toUtf8());
        qputenv("XDG_DATA_DIRS", (m_directory.path() + QStringLiteral("/system")).toUtf8());
    }

    /// Writes "applications/<file>" below "home" or "system"; `keys` are lines of its main group.
    void write(const char* level, const char* file, const QByteArray& keys) const
    {
        QFile target(path(level, file));
        const QByteArray text = "[Desktop Entry]\nType=Application\nExec=/bin/true\n" + keys + '\n';
        if (!target.open(QIODevice::WriteOnly) || target.write(text) != text.size())
            qFatal("cannot write a desktop file");
    }

    void remove(const char* level, const char* file) const { QFile::remove(path(level, file)); }

    QString path(const char* level, const char* file) const
    {
        return m_directory.path() + u'/' + QString::fromLatin1(level) + QStringLiteral("/applications/")
            + QString::fromLatin1(file);
    }

private:
    QTemporaryDir m_directory;
};

} // namespace Tarvik
