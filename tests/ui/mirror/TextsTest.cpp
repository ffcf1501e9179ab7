// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/Texts.h"

#include "support/TestSupport.h"

#include <QLocale>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class TextsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theLastCheckIsToldInTheLargestUnit_data()
    {
        QTest::addColumn<qint64>("seconds");
        QTest::addColumn<QString>("text");
        QTest::newRow("in the future") << qint64{-5} << u"0 seconds ago"_s;
        QTest::newRow("now") << qint64{0} << u"0 seconds ago"_s;
        QTest::newRow("a second") << qint64{1} << u"1 second ago"_s;
        QTest::newRow("almost a minute") << qint64{59} << u"59 seconds ago"_s;
        QTest::newRow("a minute") << qint64{119} << u"1 minute ago"_s;
        QTest::newRow("hours") << qint64{2 * 3600 + 1800} << u"2 hours ago"_s;
        QTest::newRow("days") << qint64{6 * 86400} << u"6 days ago"_s;
        QTest::newRow("a week") << qint64{7 * 86400} << u"1 week ago"_s;
        QTest::newRow("weeks") << qint64{29 * 86400} << u"4 weeks ago"_s;
        QTest::newRow("a month") << qint64{30 * 86400} << u"1 month ago"_s;
        QTest::newRow("months") << qint64{364 * 86400} << u"12 months ago"_s;
        QTest::newRow("a year") << qint64{365 * 86400} << u"1 year ago"_s;
        QTest::newRow("years") << qint64{800 * 86400} << u"2 years ago"_s;
    }

    void theLastCheckIsToldInTheLargestUnit()
    {
        QFETCH(qint64, seconds);
        QFETCH(QString, text);
        const QDateTime now = QDateTime::currentDateTime();
        QCOMPARE(Texts::lastCheck(now.addSecs(-seconds), now), u"Last checked "_s + text);
    }

    void withoutACheckThatIsTold()
    {
        QCOMPARE(Texts::lastCheck({}, QDateTime::currentDateTime()), u"Not checked yet."_s);
    }

    void theLastEventOfAHookIsToldInShort_data()
    {
        QTest::addColumn<qint64>("seconds");
        QTest::addColumn<QString>("text");
        QTest::newRow("in the future") << qint64{-5} << u"just now"_s;
        QTest::newRow("almost a minute") << qint64{59} << u"just now"_s;
        QTest::newRow("a minute") << qint64{60} << u"1 min ago"_s;
        QTest::newRow("minutes") << qint64{179} << u"2 min ago"_s;
        QTest::newRow("hours") << qint64{2 * 3600 + 1800} << u"2 h ago"_s;
        QTest::newRow("a day") << qint64{86400} << u"1 day ago"_s;
        QTest::newRow("weeks") << qint64{15 * 86400} << u"2 weeks ago"_s;
    }

    void theLastEventOfAHookIsToldInShort()
    {
        QFETCH(qint64, seconds);
        QFETCH(QString, text);
        const QDateTime now = QDateTime::currentDateTime();
        QCOMPARE(Texts::hookState(u"codex"_s, now.addSecs(-seconds), now), u"Last event "_s + text);
    }

    void beforeItsFirstEventWhatTheAgentNeedsIsTold_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("claude") << u"No event yet. Claude Code sends the first one with your next prompt."_s;
        QTest::newRow("codex")
            << u"No event yet. Restart Codex and approve the hooks when it asks: it skips them until you do."_s;
        QTest::newRow("gemini")
            << u"No event yet. Restart Gemini CLI in a folder that you have told it to trust: it skips hooks elsewhere."_s;
        QTest::newRow("qwen")
            << u"No event yet. Qwen Code reads its hooks when it starts: restart sessions that are already running."_s;
        QTest::newRow("droid")
            << u"No event yet. Factory Droid reads its hooks when it starts: restart sessions that are already running."_s;
        QTest::newRow("copilot")
            << u"No event yet. Copilot CLI reads its hooks when it starts: restart sessions that are already running."_s;
    }

    void beforeItsFirstEventWhatTheAgentNeedsIsTold()
    {
        QFETCH(QString, text);
        const QString id = QString::fromLatin1(QTest::currentDataTag());
        QCOMPARE(Texts::hookState(id, {}, QDateTime::currentDateTime()), text);
    }

    void theAgeOfACheckIsLookedAtWhenItsTextChanges_data()
    {
        QTest::addColumn<qint64>("milliseconds");
        QTest::addColumn<int>("left");
        QTest::newRow("in the future") << qint64{-5'000} << 1'000;
        QTest::newRow("now") << qint64{0} << 1'000;
        QTest::newRow("seconds") << qint64{3'400} << 600;
        QTest::newRow("almost a minute") << qint64{59'999} << 1;
        QTest::newRow("minutes") << qint64{119'000} << 1'000;
        QTest::newRow("hours") << qint64{7'230'000} << 30'000;
    }

    void theAgeOfACheckIsLookedAtWhenItsTextChanges()
    {
        QFETCH(qint64, milliseconds);
        QFETCH(int, left);
        const QDateTime now = QDateTime::currentDateTime();
        QCOMPARE(Texts::untilNextAge(now.addMSecs(-milliseconds), now), left);
    }

    void withoutACheckNothingIsEverLookedAt() { QCOMPARE(Texts::untilNextAge({}, QDateTime::currentDateTime()), 0); }

    void daysHaveNames()
    {
        const QDateTime now({2026, 3, 1}, {17, 4});
        QCOMPARE(Texts::day(u"2026-03-01"_s, now), u"Today"_s);
        QCOMPARE(Texts::day(u"2026-02-28"_s, now), u"Yesterday"_s);
        QCOMPARE(Texts::day(u"2026-02-27"_s, now), u"Friday, 27 February 2026"_s);
        QCOMPARE(Texts::day(u"2026-03-02"_s, now), u"Monday, 2 March 2026"_s);
        const QDateTime midnight = now.date().addDays(1).startOfDay();
        QCOMPARE(Texts::day(u"2026-03-01"_s, midnight.addMSecs(-1)), u"Today"_s);
        QCOMPARE(Texts::day(u"2026-03-01"_s, midnight), u"Yesterday"_s);
        QCOMPARE(Texts::day(u"2026-03-01"_s, midnight.toUTC()), u"Yesterday"_s);
    }

    void theDayIsLookedAtWhenItEndsAndEveryMinute()
    {
        const QDateTime midnight = QDate(2026, 3, 2).startOfDay();
        QCOMPARE(Texts::untilNextDay(midnight), 60'000);
        QCOMPARE(Texts::untilNextDay(midnight.addSecs(-61)), 60'000);
        QCOMPARE(Texts::untilNextDay(midnight.addSecs(-10)), 10'000);
        QCOMPARE(Texts::untilNextDay(midnight.addMSecs(-1).toUTC()), 1);
    }

    void theTimeOfAnEntryIsShort() { QCOMPARE(Texts::time(QDateTime({2026, 3, 5}, {0, 7}).toUTC()), u"00:07"_s); }

    void applicationsAreFoundByAPartOfTheirNames()
    {
        const QVariantMap blender{{u"bundleID"_s, u"org.blender"_s}, {u"name"_s, u"Blender"_s}};
        const QVariantMap handBrake{{u"bundleID"_s, u"fr.handbrake"_s}, {u"name"_s, u"HandBrake"_s}};
        const QVariantList all{blender, handBrake};
        QCOMPARE(Texts::matching(all, {}), all);
        QCOMPARE(Texts::matching(all, u" hANd "_s), QVariantList{handBrake});
        QCOMPARE(Texts::matching(all, u"fr."_s), QVariantList());
    }
};

QTEST_GUILESS_MAIN(TextsTest)
#include "TextsTest.moc"
