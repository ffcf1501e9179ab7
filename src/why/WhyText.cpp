// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "why/WhyText.h"

#include "core/TerminalText.h"
#include "why/WhyRules.h"

#include <QCoreApplication>
#include <QDateTime>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tarvik::WhyText {

namespace {

QDateTime localTime(TimePoint at)
{
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(at.time_since_epoch().count() * 1000));
}

QString programs(const QList<SleepLock>& locks)
{
    QStringList names;
    for (const SleepLock& lock : locks)
        names.append(lock.program);
    return listed(names);
}

QString sentence(const QString& first, const QString& second)
{
    return QCoreApplication::translate("WhyText", "%1; %2.").arg(first, second);
}

QString awakeByTarvik(const WhyReport& report)
{
    const QString work = listed(report.active);
    if (!report.sessionEnd) {
        return QCoreApplication::translate("WhyText", "Tarvik keeps this computer awake because work is going on: %1.")
            .arg(work);
    }
    const QString end = moment(*report.sessionEnd, report.now);
    if (work.isEmpty()) {
        return QCoreApplication::translate("WhyText", "Tarvik keeps this computer awake for a timed session, until %1.")
            .arg(end);
    }
    return QCoreApplication::translate(
        "WhyText", "Tarvik keeps this computer awake for a timed session, until %1, and because work is going on: %2.")
        .arg(end, work);
}

QString awakeByOthers(const QList<SleepLock>& locks)
{
    const bool isOne
        = std::ranges::all_of(locks, [&](const SleepLock& lock) { return lock.program == locks.constFirst().program; });
    if (!isOne) {
        return QCoreApplication::translate("WhyText", "Other programs keep this computer awake: %1.")
            .arg(programs(locks));
    }
    const auto explained = std::ranges::find_if(locks, [](const SleepLock& lock) { return !lock.reason.isEmpty(); });
    return explained != locks.end()
        ? QCoreApplication::translate("WhyText", "%1 keeps this computer awake (%2).")
              .arg(programs(locks), shortened(explained->reason))
        : QCoreApplication::translate("WhyText", "%1 keeps this computer awake.").arg(programs(locks));
}

QString secret(const QStringList& services)
{
    return QCoreApplication::translate("WhyText", "what %1 would do when nobody uses it is not known")
        .arg(listed(services));
}

/// What will happen to a computer that nothing holds awake.
QString whatWouldFollow(const WhyReport& report)
{
    if (const auto rule = WhyRules::firstSleep(report))
        return idleRule(*rule);
    QStringList secretive;
    for (const IdleSleepRule& rule : report.idleRules) {
        if (!rule.action)
            secretive.append(rule.service);
    }
    if (!secretive.isEmpty())
        return secret(secretive);
    return WhyRules::isSetToStayAwake(report)
        ? QCoreApplication::translate("WhyText", "nothing here is set to put it to sleep")
        : QCoreApplication::translate("WhyText", "what would put it to sleep is not known");
}

QString sleepClause(const WhyReport& report, const PastSleep& sleep)
{
    const QString from = moment(sleep.from, report.now);
    return sleep.until ? QCoreApplication::translate("WhyText", "This computer last slept from %1 to %2")
                             .arg(from, moment(*sleep.until, report.now))
                       : QCoreApplication::translate("WhyText", "This computer last went to sleep at %1").arg(from);
}

/// What Tarvik did when the computer went to sleep, as far as that can be known.
QString tarvikThen(const WhyReport& report, const PastSleep& sleep)
{
    const auto entry = WhyRules::lastEntryBefore(report, sleep);
    if (!entry)
        return QCoreApplication::translate("WhyText", "Tarvik's journal has nothing from before that");
    const QString since = moment(entry->at, report.now);
    const QString what = shortened(entry->reason);
    if (entry->kind == JournalEntry::Kind::off || entry->kind == JournalEntry::Kind::paused) {
        return QCoreApplication::translate("WhyText", "Tarvik was not keeping it awake (since %1: %2)")
            .arg(since, what);
    }
    // A Tarvik that was killed has left no last word.
    if (sleep.from < report.runningSince) {
        return QCoreApplication::translate(
            "WhyText", "whether Tarvik was running then is not known (its last word before was at %1: %2)")
            .arg(since, what);
    }
    return QCoreApplication::translate(
        "WhyText", "Tarvik was keeping it awake (since %1: %2), and what put it to sleep all the same is not known")
        .arg(since, what);
}

} // namespace

QString awake(const WhyReport& report)
{
    if (WhyRules::isKeptAwakeByTarvik(report))
        return awakeByTarvik(report);
    if (const QList<SleepLock> others = WhyRules::othersKeepingAwake(report); !others.isEmpty())
        return awakeByOthers(others);
    return sentence(report.locks.silentServices.isEmpty()
            ? QCoreApplication::translate("WhyText", "Nothing holds this computer awake")
            : QCoreApplication::translate("WhyText", "Nothing that can be seen holds this computer awake"),
        whatWouldFollow(report));
}

QStringList remarks(const WhyReport& report)
{
    QStringList sentences;
    const bool isKept = WhyRules::isKeptAwakeByTarvik(report);
    if (!report.isAwake) {
        sentences.append(
            QCoreApplication::translate("WhyText", "Tarvik does not keep it awake (%1).").arg(report.statusReason));
    } else if (!isKept) {
        sentences.append(QCoreApplication::translate("WhyText",
            "Tarvik wants to keep it awake, but none of its locks is known to work here: it may sleep all the same."));
    }
    if (const QList<SleepLock> others = WhyRules::othersKeepingAwake(report); isKept && !others.isEmpty()) {
        sentences.append(
            QCoreApplication::translate("WhyText", "It would stay awake without Tarvik, too, because of %1.")
                .arg(programs(others)));
    }
    if (isKept && WhyRules::isSetToStayAwake(report))
        sentences.append(QCoreApplication::translate("WhyText", "Nothing here is set to put it to sleep anyway."));
    if (report.runsWithLidClosed) {
        sentences.append(
            QCoreApplication::translate("WhyText", "Its lid is closed, and Tarvik keeps it running all the same."));
    }
    return sentences;
}

QString slept(const WhyReport& report)
{
    if (!report.sleeps)
        return QCoreApplication::translate("WhyText", "When this computer slept last is not known.");
    if (report.sleeps->isEmpty())
        return QCoreApplication::translate("WhyText", "This computer has not slept since it was started.");
    const PastSleep& last = report.sleeps->constLast();
    return sentence(sleepClause(report, last), tarvikThen(report, last));
}

QString listed(const QStringList& names)
{
    QStringList parts;
    for (const QString& name : names) {
        if (const QString part = shortened(name); !parts.contains(part))
            parts.append(part);
    }
    constexpr qsizetype named = 4;
    QString list = parts.value(0);
    for (const QString& part : parts.mid(1, named - 1))
        list = QCoreApplication::translate("WhyText", "%1, %2").arg(list, part);
    const int others = static_cast<int>(parts.size() - named);
    return others > 0 ? QCoreApplication::translate("StatusText", "%1 +%n more", nullptr, others).arg(list) : list;
}

QString idleRule(const IdleSleepRule& rule)
{
    if (!rule.action)
        return secret({rule.service});
    const QString service = shortened(rule.service);
    if (*rule.action == IdleSleepAction::nothing)
        return QCoreApplication::translate("WhyText", "%1 does not put it to sleep").arg(service);
    if (!rule.after) {
        return QCoreApplication::translate(
            "WhyText", "%1 puts it to sleep when nobody uses it, but after how long is not known")
            .arg(service);
    }
    const QString after = TerminalText::duration(static_cast<double>(rule.after->count()));
    switch (*rule.action) {
    case IdleSleepAction::suspend:
        return QCoreApplication::translate("WhyText", "%1 suspends it after %2 without activity").arg(service, after);
    case IdleSleepAction::hibernate:
        return QCoreApplication::translate("WhyText", "%1 hibernates it after %2 without activity").arg(service, after);
    case IdleSleepAction::other:
    case IdleSleepAction::nothing:
        break;
    }
    return QCoreApplication::translate("WhyText", "%1 shuts it down or logs out after %2 without activity")
        .arg(service, after);
}

QString moment(TimePoint at, TimePoint now)
{
    const QDateTime time = localTime(at);
    return time.toString(time.date() == localTime(now).date() ? u"HH:mm"_s : u"yyyy-MM-dd HH:mm"_s);
}

QString shortened(const QString& text)
{
    constexpr qsizetype enough = 80;
    return text.size() <= enough ? text : text.left(enough - 1) + u'…';
}

} // namespace Tarvik::WhyText
