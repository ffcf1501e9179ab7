// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/history/JournalSleeps.h"

#include "platform/linux/kernel/SysfsFile.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace Tarvik::JournalSleeps {

using namespace Qt::StringLiterals;

namespace {

/// SD_MESSAGE_SLEEP_START and SD_MESSAGE_SLEEP_STOP of sd-messages.h.
constexpr auto start = "6bbd95ee977941e497c48be27c254128"_L1;
constexpr auto stop = "8811e6df2a8e40f58a94cea26f8ebf14"_L1;

std::string match(const std::string& field, const QByteArray& value)
{
    return field + '=' + value.toStdString();
}

/// When the message was written. That it came to be in the journal may be later: after the sleep that it announces.
std::optional<TimePoint> timeOf(const QJsonObject& entry)
{
    for (const auto& field : {u"_SOURCE_REALTIME_TIMESTAMP"_s, u"__REALTIME_TIMESTAMP"_s}) {
        bool isNumber = false;
        const qint64 time = entry.value(field).toString().toLongLong(&isNumber);
        if (isNumber)
            return TimePoint(std::chrono::microseconds(time));
    }
    return {};
}

void take(const QJsonObject& entry, QList<PastSleep>& sleeps)
{
    const auto time = timeOf(entry);
    const QString message = entry.value("MESSAGE_ID"_L1).toString();
    if (!time)
        return;
    if (message == start) {
        sleeps.append({.from = *time, .until = {}});
        return;
    }
    if (message != stop || sleeps.isEmpty() || sleeps.constLast().until)
        return;
    constexpr int error = 3;
    const bool hasSlept = entry.value("PRIORITY"_L1).toString(u"6"_s).toInt() > error;
    if (hasSlept)
        sleeps.last().until = time;
    else
        sleeps.removeLast();
}

} // namespace

std::vector<std::string> command(const std::string& executable, int count)
{
    QByteArray boot = SysfsFile::text(u"/proc/sys/kernel/random/boot_id"_s).value_or(QByteArray());
    return {executable,
        "--system",
        "--quiet",
        "--no-pager",
        "--output=json",
        "--output-fields=MESSAGE_ID,PRIORITY,_SOURCE_REALTIME_TIMESTAMP",
        "--lines=" + std::to_string(2 * count),
        match("_BOOT_ID", boot.replace('-', QByteArray())),
        match("MESSAGE_ID", QByteArray(start.data(), start.size())),
        match("MESSAGE_ID", QByteArray(stop.data(), stop.size()))};
}

QList<PastSleep> in(const QByteArray& output)
{
    QList<PastSleep> sleeps;
    for (const QByteArray& line : output.split('\n'))
        take(QJsonDocument::fromJson(line).object(), sleeps);
    return sleeps;
}

} // namespace Tarvik::JournalSleeps
