// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "monitors/ThermalMonitor.h"

#include "fakes/FakeThermalState.h"
#include "support/TestSupport.h"

#include <QSignalSpy>

using namespace Tarvik;

class ThermalMonitorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void onlySeriousAndCriticalAreHot_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<bool>("hot");
        QTest::newRow("nominal") << 0 << false;
        QTest::newRow("fair") << 1 << false;
        QTest::newRow("serious") << 2 << true;
        QTest::newRow("critical") << 3 << true;
    }

    void onlySeriousAndCriticalAreHot()
    {
        QFETCH(const int, level);
        FakeThermalState source;
        source.current = static_cast<ThermalLevel>(level);
        const ThermalMonitor monitor{source};
        QCOMPARE(monitor.state(), source.current);
        QTEST(monitor.isHot(), "hot");
    }

    void nominalAfterSeriousIsNotHotAndIsReported()
    {
        FakeThermalState source;
        source.current = ThermalLevel::serious;
        ThermalMonitor monitor{source};
        int changes = 0;
        monitor.onChange = [&] {
            ++changes;
            QVERIFY(!monitor.isHot());
        };

        source.current = ThermalLevel::nominal;
        source.announce();
        QVERIFY(!monitor.isHot());
        QCOMPARE(monitor.state(), ThermalLevel::nominal);
        QCOMPARE(changes, 1);
    }

    void aNotificationOfTheSameStateIsReportedToo()
    {
        FakeThermalState source;
        ThermalMonitor monitor{source};
        int changes = 0;
        monitor.onChange = [&] { ++changes; };
        source.announce();
        source.announce();
        QCOMPARE(changes, 2);
    }

    void aNotificationAfterTheEndDoesNothing()
    {
        FakeThermalState source;
        int changes = 0;
        {
            ThermalMonitor monitor{source};
            monitor.onChange = [&] { ++changes; };
        }
        source.announce();
        QCOMPARE(changes, 0);
    }

    void aNotificationWithoutAListenerIsHarmless()
    {
        FakeThermalState source;
        const ThermalMonitor monitor{source};
        source.current = ThermalLevel::critical;
        source.announce();
        QVERIFY(monitor.isHot());
    }

    void refreshPublishesBothFieldsEvenWhenUnchangedAndDoesNotReport()
    {
        FakeThermalState source;
        ThermalMonitor monitor{source};
        bool reported = false;
        monitor.onChange = [&] { reported = true; };
        const QSignalSpy hot{&monitor, &ThermalMonitor::isHotChanged};
        const QSignalSpy state{&monitor, &ThermalMonitor::stateChanged};
        monitor.refresh();
        monitor.refresh();
        QCOMPARE(hot.count(), 2);
        QCOMPARE(state.count(), 2);
        QVERIFY(!reported);
    }

    void bothFieldsAreSetBeforeTheFirstSignal()
    {
        FakeThermalState source;
        ThermalMonitor monitor{source};
        bool hotSeen = false;
        connect(&monitor, &ThermalMonitor::stateChanged, this, [&] { hotSeen = monitor.isHot(); });
        source.current = ThermalLevel::critical;
        monitor.refresh();
        QVERIFY(hotSeen);
    }
};

QTEST_GUILESS_MAIN(ThermalMonitorTest)
#include "ThermalMonitorTest.moc"
