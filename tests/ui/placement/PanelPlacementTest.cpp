// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/PanelPlacement.h"

#include "support/TestSupport.h"

using namespace Tarvik;

class PanelPlacementTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void thePanelOpensFromTheEdgeThatWasClicked_data()
    {
        QTest::addColumn<QPoint>("click");
        QTest::addColumn<QRect>("workArea");
        QTest::addColumn<QPoint>("expected");
        const QRect topPanel(0, 28, 1280, 772);
        const QRect bottomPanel(0, 0, 1280, 772);
        const QRect leftPanel(48, 0, 1232, 800);
        const QRect rightPanel(0, 0, 1232, 800);
        const QRect noPanel(0, 0, 1280, 800);
        const QRect secondScreen(1280, 28, 1920, 1052);
        QTest::newRow("panel at the top") << QPoint(900, 14) << topPanel << QPoint(750, 34);
        QTest::newRow("panel at the top, in its right corner") << QPoint(1275, 14) << topPanel << QPoint(974, 34);
        QTest::newRow("panel at the top, in its left corner") << QPoint(3, 14) << topPanel << QPoint(6, 34);
        QTest::newRow("panel at the bottom") << QPoint(900, 786) << bottomPanel << QPoint(750, 506);
        QTest::newRow("panel at the bottom, in its corner") << QPoint(1268, 786) << bottomPanel << QPoint(974, 506);
        QTest::newRow("panel at the left") << QPoint(24, 400) << leftPanel << QPoint(54, 270);
        QTest::newRow("panel at the left, at its end") << QPoint(24, 790) << leftPanel << QPoint(54, 534);
        QTest::newRow("panel at the right") << QPoint(1256, 400) << rightPanel << QPoint(926, 270);
        QTest::newRow("panel at the right, at its start") << QPoint(1256, 5) << rightPanel << QPoint(926, 6);
        QTest::newRow("panel that reserves no space") << QPoint(1000, 785) << noPanel << QPoint(850, 534);
        QTest::newRow("on the second screen") << QPoint(3190, 10) << secondScreen << QPoint(2894, 34);
    }

    void thePanelOpensFromTheEdgeThatWasClicked()
    {
        QFETCH(QPoint, click);
        QFETCH(QRect, workArea);
        const QPoint position = PanelPlacement::position(click, QSize(300, 260), workArea);
        QTEST(position, "expected");
        QVERIFY(workArea.contains(QRect(position, QSize(300, 260))));
    }

    void barsAreOutsideTheWorkAreaOrAtAnEdge_data()
    {
        QTest::addColumn<QPoint>("point");
        QTest::addColumn<bool>("expected");
        QTest::newRow("on the panel that reserves space") << QPoint(1280 + 900, 80) << true;
        QTest::newRow("beside it") << QPoint(1280 + 900, 110) << false;
        QTest::newRow("where a hidden panel is: at the bottom") << QPoint(1280 + 900, 1070) << true;
        QTest::newRow("at the left") << QPoint(1280 + 20, 500) << true;
        QTest::newRow("at the right") << QPoint(1280 + 1900, 500) << true;
        QTest::newRow("in the middle") << QPoint(1280 + 900, 500) << false;
    }

    void barsAreOutsideTheWorkAreaOrAtAnEdge()
    {
        QFETCH(QPoint, point);
        const PanelPlacement::Screen screen{
            .geometry = {1280, 0, 1920, 1080}, .workArea = {1280, 96, 1920, 984}, .devicePixelRatio = 1};
        QTEST(PanelPlacement::mayBeOnPanel(screen, point), "expected");
    }

    void aTrayThatCountsOtherwiseMeansThePointer_data()
    {
        QTest::addColumn<QPoint>("click");
        QTest::addColumn<QPoint>("pointer");
        QTest::addColumn<double>("scale");
        QTest::addColumn<bool>("expected");
        QTest::newRow("where the pointer is") << QPoint(2400, 30) << QPoint(2410, 25) << 2.0 << true;
        QTest::newRow("in the larger pixels of its toolkit") << QPoint(1200, 15) << QPoint(2405, 28) << 2.0 << true;
        QTest::newRow("from its own corner") << QPoint(0, 25) << QPoint(1900, 1070) << 1.0 << true;
        QTest::newRow("with the keyboard") << QPoint(1200, 14) << QPoint(100, 790) << 1.0 << false;
        QTest::newRow("with the keyboard on a scaled screen") << QPoint(1200, 14) << QPoint(100, 1500) << 2.0 << false;
    }

    void aTrayThatCountsOtherwiseMeansThePointer()
    {
        QFETCH(QPoint, click);
        QFETCH(QPoint, pointer);
        QFETCH(double, scale);
        QTEST(PanelPlacement::mayMeanPointer(click, pointer, scale), "expected");
    }

    void traysAreMostlyAtTheEndOfABar_data()
    {
        QTest::addColumn<QRect>("workArea");
        QTest::addColumn<Qt::LayoutDirection>("direction");
        QTest::addColumn<QPoint>("expected");
        QTest::newRow("top") << QRect(0, 28, 1280, 772) << Qt::LeftToRight << QPoint(1279, 0);
        QTest::newRow("bottom") << QRect(0, 0, 1280, 756) << Qt::LeftToRight << QPoint(1279, 799);
        QTest::newRow("both, the larger one") << QRect(0, 24, 1280, 730) << Qt::LeftToRight << QPoint(1279, 799);
        QTest::newRow("from right to left") << QRect(0, 0, 1280, 756) << Qt::RightToLeft << QPoint(0, 799);
        QTest::newRow("left") << QRect(48, 0, 1232, 800) << Qt::LeftToRight << QPoint(0, 799);
        QTest::newRow("right") << QRect(0, 0, 1232, 800) << Qt::LeftToRight << QPoint(1279, 799);
        QTest::newRow("none") << QRect(0, 0, 1280, 800) << Qt::LeftToRight << QPoint(1279, 0);
    }

    void traysAreMostlyAtTheEndOfABar()
    {
        QFETCH(QRect, workArea);
        QFETCH(Qt::LayoutDirection, direction);
        const PanelPlacement::Screen screen{.geometry = {0, 0, 1280, 800}, .workArea = workArea, .devicePixelRatio = 1};
        QTEST(PanelPlacement::usualTray(screen, direction), "expected");
    }

    void edgesAndMarginsTellTheSamePlaceAsAPosition_data()
    {
        QTest::addColumn<QPoint>("click");
        QTest::addColumn<Qt::Edges>("edges");
        QTest::newRow("top, in the left half") << QPoint(1280 + 400, 14) << Qt::Edges(Qt::TopEdge | Qt::LeftEdge);
        QTest::newRow("top, in the right half") << QPoint(1280 + 1500, 14) << Qt::Edges(Qt::TopEdge | Qt::RightEdge);
        QTest::newRow("top, in the left corner") << QPoint(1280 + 3, 14) << Qt::Edges(Qt::TopEdge | Qt::LeftEdge);
        QTest::newRow("top, in the right corner") << QPoint(1280 + 1919, 14) << Qt::Edges(Qt::TopEdge | Qt::RightEdge);
        QTest::newRow("bottom") << QPoint(1280 + 1500, 1070) << Qt::Edges(Qt::BottomEdge | Qt::RightEdge);
        QTest::newRow("left") << QPoint(1280 + 20, 400) << Qt::Edges(Qt::LeftEdge | Qt::TopEdge);
        QTest::newRow("right") << QPoint(1280 + 1900, 900) << Qt::Edges(Qt::RightEdge | Qt::BottomEdge);
    }

    void edgesAndMarginsTellTheSamePlaceAsAPosition()
    {
        QFETCH(QPoint, click);
        const QRect screen(1280, 0, 1920, 1080);
        const QSize size(300, 260);
        const PanelPlacement::Anchored place = PanelPlacement::anchored(click, size, screen);
        QTEST(place.edges, "edges");
        const QRect inside = screen.marginsRemoved(place.margins);
        QRect window(inside.topLeft(), size);
        if (place.edges.testFlag(Qt::RightEdge))
            window.moveRight(inside.right());
        if (place.edges.testFlag(Qt::BottomEdge))
            window.moveBottom(inside.bottom());
        QCOMPARE(window.topLeft(), PanelPlacement::position(click, size, screen));
    }

    void anAnchoredPanelKeepsClearOfReservedSpace()
    {
        const QRect screen(0, 0, 1280, 800);
        const QMargins reserved(40, 0, 0, 44);
        const auto above = PanelPlacement::anchored(QPoint(900, 780), QSize(300, 260), screen, reserved);
        QCOMPARE(above.edges, Qt::BottomEdge | Qt::RightEdge);
        QCOMPARE(above.margins.bottom(), 44 + PanelPlacement::margin);
        QCOMPARE(above.margins.right(), 1280 - 900 - 150);
        const auto inTheCorner = PanelPlacement::anchored(QPoint(60, 780), QSize(300, 260), screen, reserved);
        QCOMPARE(inTheCorner.edges, Qt::BottomEdge | Qt::LeftEdge);
        QCOMPARE(inTheCorner.margins.left(), 40 + PanelPlacement::margin);
    }

    void aPanelTooLargeForTheScreenShowsItsTopLeft()
    {
        QCOMPARE(PanelPlacement::position(QPoint(600, 790), QSize(1400, 900), QRect(0, 28, 1280, 772)), QPoint(6, 34));
    }

    void aClickIsConvertedOnScreensWithScaling()
    {
        // The second screen begins where the first one ends in physical pixels.
        const PanelPlacement::Screen first{
            .geometry = QRect(0, 0, 1280, 800), .workArea = QRect(0, 14, 1280, 786), .devicePixelRatio = 2};
        const PanelPlacement::Screen second{
            .geometry = QRect(2560, 0, 1920, 1080), .workArea = QRect(2560, 0, 1920, 1080), .devicePixelRatio = 1};
        QVERIFY(PanelPlacement::contains(first, QPoint(2559, 1599)));
        QVERIFY(!PanelPlacement::contains(first, QPoint(2560, 10)));
        QVERIFY(PanelPlacement::contains(second, QPoint(2560, 10)));
        QVERIFY(!PanelPlacement::contains(second, QPoint(4480, 10)));
        QCOMPARE(PanelPlacement::toLogical(first, QPoint(2500, 20)), QPoint(1250, 10));
        QCOMPARE(PanelPlacement::toLogical(second, QPoint(2600, 20)), QPoint(2600, 20));
        QCOMPARE(PanelPlacement::toPhysical(first, QPoint(1250, 10)), QPoint(2500, 20));
        QCOMPARE(PanelPlacement::toPhysical(second, QPoint(2600, 20)), QPoint(2600, 20));
    }
};

QTEST_APPLESS_MAIN(PanelPlacementTest)
#include "PanelPlacementTest.moc"
