// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QTemporaryDir>

namespace Tarvik {

/// A directory of programs that a test has written.
class StandInPrograms {
public:
    QString path() const { return m_directory.path(); }

    /// A shell script without its first line.
    void write(const QString& name, const QByteArray& script) const
    {
        QFile file(m_directory.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write("#!/bin/sh\n" + script + '\n') < 0
            || !file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner))
            qFatal("cannot write %s", qPrintable(name));
    }

    void link(const QString& name, const QString& target) const
    {
        if (!QFile::link(target, m_directory.filePath(name)))
            qFatal("cannot link %s", qPrintable(name));
    }

    void remove(const QString& name) const { QFile::remove(m_directory.filePath(name)); }

private:
    QTemporaryDir m_directory;
};

} // namespace Tarvik
