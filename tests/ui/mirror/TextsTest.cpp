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

    void theDateOfTodayIsNotTold()
    {
        const QDateTime now({2026, 3, 5}, {17, 4});
        QCOMPARE(Texts::time(QDateTime({2026, 3, 5}, {0, 0}), now), u"Today 00:00"_s);
        QCOMPARE(Texts::time(now.toUTC(), now), u"Today 17:04"_s);
        QCOMPARE(Texts::time(QDateTime({2026, 3, 4}, {23, 59}), now), u"04/03/2026 23:59"_s);
        QCOMPARE(Texts::time(QDateTime({2025, 3, 5}, {17, 4}), now), u"05/03/2025 17:04"_s);
    }

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
