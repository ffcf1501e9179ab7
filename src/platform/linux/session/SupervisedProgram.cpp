// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/session/SupervisedProgram.h"

#include "base/FileDescriptor.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcessEnvironment>
#include <QRegularExpression>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

/// Set by systemd for one process, systemd.exec(5), or by the shell that started it.
const std::array perProcess{u"INVOCATION_ID"_s,
    u"JOURNAL_STREAM"_s,
    u"LISTEN_FDNAMES"_s,
    u"LISTEN_FDS"_s,
    u"LISTEN_PID"_s,
    u"MAINPID"_s,
    u"MANAGERPID"_s,
    u"NOTIFY_SOCKET"_s,
    u"SYSTEMD_EXEC_PID"_s,
    u"WATCHDOG_PID"_s,
    u"WATCHDOG_USEC"_s,
    u"_"_s};

const std::array perSession{u"DBUS_SESSION_BUS_ADDRESS"_s,
    u"DESKTOP_SESSION"_s,
    u"DESKTOP_STARTUP_ID"_s,
    u"DISPLAY"_s,
    u"WAYLAND_DISPLAY"_s,
    u"XAUTHORITY"_s,
    u"XDG_ACTIVATION_TOKEN"_s,
    u"XDG_CURRENT_DESKTOP"_s,
    u"XDG_SEAT"_s,
    u"XDG_SESSION_DESKTOP"_s,
    u"XDG_SESSION_ID"_s,
    u"XDG_SESSION_TYPE"_s,
    u"XDG_VTNR"_s};

/// A desktop that was started from a text console passes that on to its programs, but not its Ctrl-C.
bool isForegroundJob()
{
    const FileDescriptor terminal(open("/dev/tty", O_RDONLY | O_NOCTTY | O_CLOEXEC));
    return terminal.isValid() && tcgetpgrp(terminal.get()) == getpgrp();
}

QString nameIn(const QString& variable)
{
    return variable.first(std::max<qsizetype>(variable.indexOf(u'='), 0));
}

QString unitPrefix(const QString& applicationId)
{
    return u"app-"_s + applicationId + u'@';
}

} // namespace

SupervisedProgram SupervisedProgram::current()
{
    QFile cgroup(u"/proc/self/cgroup"_s);
    return {.path = QCoreApplication::applicationFilePath(),
        .arguments = QCoreApplication::arguments().mid(1),
        .environment = QProcessEnvironment::systemEnvironment().toStringList(),
        .cgroup = cgroup.open(QIODevice::ReadOnly) ? cgroup.readAll().trimmed() : QByteArray(),
        .processId = QCoreApplication::applicationPid(),
        .isInForeground = isForegroundJob()};
}

QString SupervisedProgram::unitName(const QString& applicationId, qint64 processId)
{
    return unitPrefix(applicationId) + QString::number(processId) + u".service"_s;
}

bool SupervisedProgram::isUnitOf(const QString& applicationId, const QByteArray& cgroup)
{
    static const QRegularExpression number(u"^[0-9]+\\.service$"_s);
    const QString prefix = u'/' + unitPrefix(applicationId);
    return std::ranges::any_of(cgroup.split('\n'), [&](const QByteArray& line) {
        const QString group = QString::fromUtf8(line);
        const QString unit = group.sliced(std::max<qsizetype>(group.lastIndexOf(u'/'), 0));
        return unit.startsWith(prefix) && number.match(unit.sliced(prefix.size())).hasMatch();
    });
}

QStringList SupervisedProgram::passedOn(const QStringList& environment)
{
    static const QRegularExpression name(u"^[A-Za-z_][A-Za-z0-9_]*$"_s);
    QStringList passed;
    std::ranges::copy_if(environment, std::back_inserter(passed), [](const QString& variable) {
        return name.match(nameIn(variable)).hasMatch()
            && std::ranges::find(perProcess, nameIn(variable)) == perProcess.end();
    });
    return passed;
}

QStringList SupervisedProgram::missing(const QStringList& environment)
{
    QStringList names;
    std::ranges::copy_if(perSession, std::back_inserter(names), [&](const QString& name) {
        return std::ranges::none_of(environment, [&](const QString& variable) { return nameIn(variable) == name; });
    });
    return names;
}

} // namespace Tarvik
