// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace Tarvik {

/// A program as a service of the user's systemd, which starts it again when it has crashed: what is to be told of it,
/// and whether this process is such a service.
struct SupervisedProgram {
    /// Of this process.
    static SupervisedProgram current();

    /// The service's name "app-<applicationId>@<number>.service" is that of a desktop's application, and unlike those
    /// of the desktops themselves: its number is a process id.
    static QString unitName(const QString& applicationId, qint64 processId);

    /// Whether a line of /proc/PID/cgroup, cgroups(7), names such a service.
    static bool isUnitOf(const QString& applicationId, const QByteArray& cgroup);

    /// "NAME=VALUE" lines without those that systemd would refuse and those that it says anew to each process.
    static QStringList passedOn(const QStringList& environment);

    /// What says which session a process belongs to and is not in `environment`, so that it must not be inherited from
    /// a session of earlier.
    static QStringList missing(const QStringList& environment);

    QString path;
    /// Those that follow the program's name.
    QStringList arguments;
    QStringList environment;
    QByteArray cgroup;
    qint64 processId = 0;
    /// Somebody sits in front of it at a terminal and may end it with Ctrl-C.
    bool isInForeground = false;
};

} // namespace Tarvik
