// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/Texts.h"

#include "core/HookSpec.h"
#include "core/HookTraits.h"
#include "core/SessionChoices.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

struct Unit {
    qint64 seconds;
    // English needs no translation, so its plurals are texts of their own.
    const char* one;
    const char* several;
};

constexpr std::array<Unit, 7> units{{
    {31'536'000, QT_TRANSLATE_N_NOOP("Texts", "%n year ago"), QT_TRANSLATE_N_NOOP("Texts", "%n years ago")},
    {2'592'000, QT_TRANSLATE_N_NOOP("Texts", "%n month ago"), QT_TRANSLATE_N_NOOP("Texts", "%n months ago")},
    {604'800, QT_TRANSLATE_N_NOOP("Texts", "%n week ago"), QT_TRANSLATE_N_NOOP("Texts", "%n weeks ago")},
    {86'400, QT_TRANSLATE_N_NOOP("Texts", "%n day ago"), QT_TRANSLATE_N_NOOP("Texts", "%n days ago")},
    {3'600, QT_TRANSLATE_N_NOOP("Texts", "%n hour ago"), QT_TRANSLATE_N_NOOP("Texts", "%n hours ago")},
    {60, QT_TRANSLATE_N_NOOP("Texts", "%n minute ago"), QT_TRANSLATE_N_NOOP("Texts", "%n minutes ago")},
    {1, QT_TRANSLATE_N_NOOP("Texts", "%n second ago"), QT_TRANSLATE_N_NOOP("Texts", "%n seconds ago")},
}};

/// In seconds.
constexpr qint64 minute = 60;
constexpr qint64 hour = 60 * minute;
constexpr qint64 day = 24 * hour;
constexpr qint64 millisecondsInSecond = 1'000;

QString ago(qint64 seconds)
{
    const auto found = std::ranges::find_if(units, [&](const Unit& unit) { return seconds >= unit.seconds; });
    const Unit& unit = found == units.end() ? units.back() : *found;
    const int count = static_cast<int>(std::max<qint64>(0, seconds) / unit.seconds);
    return QCoreApplication::translate("Texts", count == 1 ? unit.one : unit.several, nullptr, count);
}

QString shortAgo(qint64 seconds)
{
    if (seconds >= day)
        return ago(seconds);
    // lupdate does not read on after the "<" of a cast.
    const int hours = static_cast<int>(seconds / hour);
    const int minutes = static_cast<int>(seconds / minute);
    if (hours > 0)
        return QCoreApplication::translate("Texts", "%n h ago", nullptr, hours);
    if (minutes > 0)
        return QCoreApplication::translate("Texts", "%n min ago", nullptr, minutes);
    return QCoreApplication::translate("Texts", "just now");
}

QString firstEvent(HookStart start)
{
    switch (start) {
    case HookStart::prompt:
        return QCoreApplication::translate("Texts", "No event yet. %1 sends the first one with your next prompt.");
    case HookStart::restart:
        return QCoreApplication::translate(
            "Texts", "No event yet. %1 reads its hooks when it starts: restart sessions that are already running.");
    case HookStart::approval:
        return QCoreApplication::translate(
            "Texts", "No event yet. Restart %1 and approve the hooks when it asks: it skips them until you do.");
    case HookStart::trustedFolder:
        return QCoreApplication::translate(
            "Texts", "No event yet. Restart %1 in a folder that you have told it to trust: it skips hooks elsewhere.");
    }
    Q_UNREACHABLE();
}

} // namespace

QVariantList Texts::sessionLengths()
{
    QVariantList lengths;
    for (const SessionChoices::Length& length : SessionChoices::lengths())
        lengths.append(QVariantMap{{u"minutes"_s, length.minutes}, {u"text"_s, length.text}});
    return lengths;
}

QString Texts::cancelSession()
{
    return SessionChoices::cancel();
}

QString Texts::sessionTitle(bool isRunning)
{
    return SessionChoices::title(isRunning);
}

QString Texts::lastCheck(const QVariant& date, const QDateTime& now)
{
    const QDateTime at = date.toDateTime();
    return at.isValid() ? QCoreApplication::translate("Texts", "Last checked %1").arg(ago(at.secsTo(now)))
                        : QCoreApplication::translate("Texts", "Not checked yet.");
}

QString Texts::hookState(const QString& id, const QVariant& date, const QDateTime& now)
{
    const QDateTime at = date.toDateTime();
    if (at.isValid())
        return QCoreApplication::translate("Texts", "Last event %1").arg(shortAgo(at.secsTo(now)));
    const std::string name = id.toStdString();
    const HookSpec* spec = HookSpec::find(name);
    const QString label = spec != nullptr ? QString::fromUtf8(spec->label.data(), qsizetype(spec->label.size())) : id;
    return firstEvent(HookTraits::of(name).start).arg(label);
}

int Texts::untilNextAge(const QVariant& date, const QDateTime& now)
{
    const QDateTime at = date.toDateTime();
    if (!at.isValid())
        return 0;
    const qint64 age = std::max<qint64>(0, at.msecsTo(now));
    const qint64 unit = millisecondsInSecond * (age < minute * millisecondsInSecond ? 1 : minute);
    return static_cast<int>(unit - age % unit);
}

QString Texts::day(const QString& isoDate, const QDateTime& now)
{
    const QDate date = QDate::fromString(isoDate, Qt::ISODate);
    const QDate today = now.toLocalTime().date();
    if (date == today)
        return QCoreApplication::translate("Texts", "Today");
    if (date == today.addDays(-1))
        return QCoreApplication::translate("Texts", "Yesterday");
    return QLocale().toString(date, QLocale::LongFormat);
}

int Texts::untilNextDay(const QDateTime& now)
{
    const QDateTime local = now.toLocalTime();
    const QDateTime midnight = local.date().addDays(1).startOfDay();
    return static_cast<int>(std::clamp<qint64>(local.msecsTo(midnight), 1, minute * millisecondsInSecond));
}

QString Texts::time(const QDateTime& at)
{
    return QLocale().toString(at.toLocalTime().time(), QLocale::ShortFormat);
}

QVariantList Texts::matching(const QVariantList& applications, const QString& wanted)
{
    QVariantList found;
    std::ranges::copy_if(
        applications, std::back_inserter(found), [name = wanted.trimmed()](const QVariant& application) {
            return application.toMap().value(u"name"_s).toString().contains(name, Qt::CaseInsensitive);
        });
    return found;
}

} // namespace Tarvik
