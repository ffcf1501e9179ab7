// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/Contrast.h"

#include "support/TestSupport.h"

#include <cmath>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class ContrastTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theRatioIsThatOfTheGuidelines()
    {
        QCOMPARE(Contrast::between(Qt::black, Qt::white), 21.0);
        QCOMPARE(Contrast::between(Qt::white, Qt::black), 21.0);
        QCOMPARE(Contrast::between(u"#767676"_s, u"#767676"_s), 1.0);
        // The greys that are known as the lightest on white for 4.5 and 3.
        QCOMPARE(std::floor(Contrast::between(u"#767676"_s, Qt::white) * 100), 454.0);
        QCOMPARE(std::floor(Contrast::between(u"#949494"_s, Qt::white) * 100), 303.0);
    }

    void aColourThatCanBeSeenStaysWhatItIs()
    {
        QCOMPARE(Contrast::reached(3, u"#e66100"_s, Qt::white), QColor(u"#e66100"_s));
        QCOMPARE(Contrast::reached(4.5, u"#7aa5ff"_s, u"#1f2023"_s), QColor(u"#7aa5ff"_s));
    }

    void anyOtherIsMovedAsFarAsItMust_data()
    {
        QTest::addColumn<QColor>("color");
        for (const char* name :
            {"#ffcc00", "#e66100", "#3584e4", "#2ec27e", "#00ffff", "#0000ff", "#ffffff", "#808080", "#000000"})
            QTest::newRow(name) << QColor(QLatin1StringView(name));
    }

    void anyOtherIsMovedAsFarAsItMust()
    {
        QFETCH(QColor, color);
        for (const QColor surface :
            {QColor(u"#ffffff"_s), QColor(u"#e3e3e8"_s), QColor(u"#3a3b40"_s), QColor(u"#1f2023"_s)}) {
            for (const double least : {3.0, 4.5, 7.0}) {
                const QColor moved = Contrast::reached(least, color, surface);
                const double ratio = Contrast::between(moved, surface);
                QVERIFY2(ratio >= least, qPrintable(moved.name()));
                if (moved == color)
                    continue;
                QVERIFY2(ratio < least * 1.1, qPrintable(u"%1 %2"_s.arg(moved.name()).arg(ratio)));
                // What is left of a hue in a few steps of brightness is not exact.
                if (color.hslSaturation() > 0)
                    QVERIFY(std::abs(moved.hslHue() - color.hslHue()) <= 3);
            }
        }
    }

    void whatNoShadeReachesIsBlackOrWhite()
    {
        QCOMPARE(Contrast::reached(21, u"#e66100"_s, u"#f2f2f5"_s), QColor(Qt::black));
        QCOMPARE(Contrast::reached(21, u"#e66100"_s, u"#1f2023"_s), QColor(Qt::white));
    }

    void aTintIsBetweenItsColours()
    {
        QCOMPARE(Contrast::tint(Qt::white, u"#2363d8"_s, 0.11), QColor(u"#e7eefb"_s));
        QCOMPARE(Contrast::tint(u"#292a2d"_s, u"#366ee0"_s, 0), QColor(u"#292a2d"_s));
        QCOMPARE(Contrast::tint(u"#292a2d"_s, u"#366ee0"_s, 1), QColor(u"#366ee0"_s));
    }
};

QTEST_APPLESS_MAIN(ContrastTest)
#include "ContrastTest.moc"
