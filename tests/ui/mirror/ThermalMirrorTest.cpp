// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/ThermalMirror.h"

#include "bus/ServedTarvik.h"
#include "support/TestSupport.h"
#include "ui/mirror/MirrorTestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class ThermalMirrorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void heatIsShownInNumbersAndWords()
    {
        ServedTarvik tarvik;
        ThermalMirror thermal(m_client);
        QTRY_VERIFY(thermal.isConnected());
        QCOMPARE(thermal.state(), 0);
        QCOMPARE(thermal.stateText(), u"normal"_s);
        tarvik.machine.setHeat(ThermalLevel::critical);
        QTRY_VERIFY(thermal.isHot());
        QCOMPARE(thermal.state(), 3);
        QCOMPARE(thermal.stateText(), u"very hot"_s);
        tarvik.machine.setHeat(ThermalLevel::fair);
        QTRY_COMPARE(thermal.stateText(), u"warm"_s);
        QVERIFY(!thermal.isHot());
    }

private:
    QDBusConnection m_client = mirrorConnection();
};

QTEST_GUILESS_MAIN(ThermalMirrorTest)
#include "ThermalMirrorTest.moc"
