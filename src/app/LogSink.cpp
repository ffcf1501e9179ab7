// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "app/LogSink.h"

#include "base/PlainText.h"
#include "core/Logging.h"

#include <QByteArray>
#include <QString>

#include <sys/stat.h>
#include <sys/syslog.h>
#include <unistd.h>

#include <cstdio>

#define SD_JOURNAL_SUPPRESS_LOCATION
#include <systemd/sd-journal.h>

namespace Tarvik {

namespace {

using namespace Qt::StringLiterals;

/// Newer versions of QtDBus warn of every call that no slot takes. The caller is told; but anybody on the bus can make
/// such calls, as many as they like, and the log is not theirs to fill.
bool isOfAStrangersCall(const QMessageLogContext& context, const QString& message)
{
    return QLatin1StringView(context.category) == "qt.dbus.integration"_L1
        && (message.startsWith("Could not find slot "_L1)
            || message.startsWith("QDBusConnection: couldn't handle call to "_L1));
}

int priorityOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return LOG_DEBUG;
    case QtInfoMsg:
        return LOG_INFO;
    case QtWarningMsg:
        return LOG_WARNING;
    case QtCriticalMsg:
        return LOG_ERR;
    case QtFatalMsg:
        return LOG_CRIT;
    }
    return LOG_INFO;
}

/// "hooks" of "com.morvanta.Tarvik.hooks"; other categories, Qt's own, whole.
QByteArray areaOf(const QMessageLogContext& context)
{
    const QByteArray category(context.category);
    const QByteArray prefix = QByteArray(logSubsystem) + '.';
    return category.startsWith(prefix) ? category.mid(prefix.size()) : category;
}

/// Errors and names come from other programs, which shall neither forge a line nor steer a terminal.
QByteArray plain(const QString& message)
{
    return QByteArray::fromStdString(PlainText::printableLines(message.toStdString()));
}

void logToJournal(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    sd_journal_send("MESSAGE=%s",
        plain(message).constData(),
        "PRIORITY=%i",
        priorityOf(type),
        "SYSLOG_IDENTIFIER=Tarvik",
        "SUBSYSTEM=%s",
        logSubsystem,
        "CATEGORY=%s",
        areaOf(context).constData(),
        nullptr);
}

void logToStandardError(QtMsgType, const QMessageLogContext& context, const QString& message)
{
    const QByteArray line = "Tarvik [" + areaOf(context) + "] " + plain(message) + '\n';
    std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), stderr);
}

template <QtMessageHandler log>
void logOurs(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!isOfAStrangersCall(context, message))
        log(type, context, message);
}

bool isStandardErrorTheJournal()
{
    struct stat status = {};
    const QByteArray stream = qgetenv("JOURNAL_STREAM");
    return !stream.isEmpty() && fstat(STDERR_FILENO, &status) == 0
        && stream == QByteArray::number(status.st_dev) + ':' + QByteArray::number(status.st_ino);
}

} // namespace

void installLogSink()
{
    qInstallMessageHandler(isStandardErrorTheJournal() ? logOurs<logToJournal> : logOurs<logToStandardError>);
}

} // namespace Tarvik
