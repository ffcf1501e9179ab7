// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "monitors/PowerParsers.h"

#include "support/TestSupport.h"

using namespace Tarvik;

class PowerParsersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theFlagCountsOnlyWhenItIsExactlyOne_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("disabled");
        QTest::newRow("one") << "SleepDisabled 1" << true;
        QTest::newRow("zero") << "SleepDisabled 0" << false;
        QTest::newRow("with a remark") << "sleepdisabled 1 (imposed)" << false;
        QTest::newRow("without the word") << "hibernatemode 3\nsleep 1\n" << false;
        QTest::newRow("nothing") << "" << false;
        QTest::newRow("the word alone") << "SleepDisabled" << false;
        QTest::newRow("eleven") << "SleepDisabled 11" << false;
        QTest::newRow("no space") << "SLEEPDISABLED1" << true;
        QTest::newRow("value before the word") << "1 sleepdisabled" << true;
        QTest::newRow("the word twice") << "sleepdisabled sleepdisabled 1" << true;
        QTest::newRow("tabs and spaces") << " \tSleepDisabled\t\t 1 \t" << true;
        QTest::newRow("carriage return") << "SleepDisabled 1\r\n" << false;
        QTest::newRow("among other lines") << "System-wide power settings:\n SleepDisabled\t\t1\n\n sleep 1\n" << true;
    }

    void theFlagCountsOnlyWhenItIsExactlyOne()
    {
        QFETCH(const QString, text);
        QTEST(PowerParsers::isSleepDisabled(text), "disabled");
    }

    void onlyTheFirstMatchingLineIsConsidered()
    {
        QVERIFY(!PowerParsers::isSleepDisabled(QStringLiteral("SleepDisabled 0\nSleepDisabled 1\n")));
        QVERIFY(!PowerParsers::isSleepDisabled(QStringLiteral("sleepdisabled by whom\nSleepDisabled 1\n")));
        QVERIFY(PowerParsers::isSleepDisabled(QStringLiteral("\n\nSleepDisabled 1\nSleepDisabled 0\n")));
    }
};

QTEST_GUILESS_MAIN(PowerParsersTest)
#include "PowerParsersTest.moc"
