// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/StatusMirror.h"

#include "bus/ServedTarvik.h"
#include "support/TestSupport.h"
#include "ui/mirror/MirrorTestSupport.h"

#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class StatusMirrorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theMirrorShowsWhatTarvikShows()
    {
        ServedTarvik tarvik;
        StatusMirror status(m_client);
        QVERIFY(!status.isConnected());
        QTRY_VERIFY(status.isConnected());
        QCOMPARE(status.isAwake(), false);
        QCOMPARE(status.reason(), tarvik.machine.coordinator->statusReason());
        QCOMPARE(status.subtitle(), u"Nothing running to keep awake for"_s);
        QCOMPARE(status.thermalText(), u"normal"_s);
    }

    void changesArriveWithTheirSignals()
    {
        ServedTarvik tarvik;
        StatusMirror status(m_client);
        QTRY_VERIFY(status.isConnected());
        QSignalSpy awake(&status, &StatusMirror::isAwakeChanged);
        QSignalSpy session(&status, &StatusMirror::isTimedSessionActiveChanged);
        tarvik.machine.run("claude\n");
        QTRY_COMPARE(status.isAwake(), true);
        QCOMPARE(status.subtitle(), u"Claude Code"_s);
        QCOMPARE(awake.size(), 1);
        QCOMPARE(session.size(), 0);
        tarvik.machine.setThermal(ThermalLevel::critical);
        QTRY_COMPARE(status.thermalText(), u"very hot"_s);
    }

    void everyFieldIsSetBeforeTheFirstSignal()
    {
        ServedTarvik tarvik;
        StatusMirror status(m_client);
        QTRY_VERIFY(status.isConnected());
        QString seen;
        connect(&status, &StatusMirror::isAwakeChanged, this, [&] { seen = status.subtitle(); });
        tarvik.machine.run("claude\n");
        QTRY_COMPARE(seen, u"Claude Code"_s);
    }

    void powerIsShownAndFollowed()
    {
        ServedTarvik tarvik;
        StatusMirror status(m_client);
        QCOMPARE(status.batteryPercent(), QVariant());
        QTRY_VERIFY(status.isConnected());
        QVERIFY(status.isOnAC() && !status.hasBattery());
        QCOMPARE(status.batteryPercent(), QVariant());
        QSignalSpy percent(&status, &StatusMirror::batteryPercentChanged);
        tarvik.machine.setPower(false, 57);
        tarvik.machine.setPower(false, 56);
        QTRY_COMPARE(status.batteryPercent(), QVariant(56));
        QVERIFY(!status.isOnAC() && status.hasBattery());
        // What changed twice in one turn is told once.
        QCOMPARE(percent.size(), 1);
        tarvik.machine.setPower(true, {});
        QTRY_COMPARE(status.batteryPercent(), QVariant());
        QVERIFY(status.isOnAC() && !status.hasBattery());
    }

    void anUpgradeThatWaitsIsShown()
    {
        ServedTarvik tarvik;
        StatusMirror status(m_client);
        QTRY_VERIFY(status.isConnected());
        QCOMPARE(status.isUpgradePending(), false);
        QSignalSpy pending(&status, &StatusMirror::upgradePendingChanged);
        tarvik.installUpgrade();
        QTRY_COMPARE(status.isUpgradePending(), true);
        QCOMPARE(pending.size(), 1);
    }

    void aSessionIsStartedReplacedAndCancelled()
    {
        ServedTarvik tarvik;
        StatusMirror status(m_client);
        QTRY_VERIFY(status.isConnected());
        status.setTimedSession(10);
        QTRY_VERIFY(status.isTimedSessionActive());
        QCOMPARE(status.reason(), u"Awake — 11 min left"_s);
        status.setTimedSession(60);
        QTRY_COMPARE(status.reason(), u"Awake — 61 min left"_s);
        status.setTimedSession(0);
        QTRY_VERIFY(!status.isTimedSessionActive());
    }

    void aSessionOfMoreThanAYearIsRefused()
    {
        ServedTarvik tarvik;
        StatusMirror status(m_client);
        QTRY_VERIFY(status.isConnected());
        expectLog(QtWarningMsg, u"^SetTimedSession failed: A timed session lasts a year at most\\.$"_s);
        QSignalSpy answered(&status, &StatusMirror::isTimedSessionActiveChanged);
        status.setTimedSession(std::numeric_limits<int>::max());
        status.setTimedSession(1);
        QTRY_COMPARE(answered.size(), 1);
        QCOMPARE(status.reason(), u"Awake — 2 min left"_s);
    }

    void lockAndQuitReachTarvik()
    {
        ServedTarvik tarvik;
        StatusMirror status(m_client);
        status.lockScreen();
        status.quit();
        QTRY_COMPARE(tarvik.asked, QStringList{u"quit"_s});
        QCOMPARE(tarvik.machine.screenLock.requests, 1);
    }

private:
    QDBusConnection m_client = mirrorConnection();
};

QTEST_GUILESS_MAIN(StatusMirrorTest)
#include "StatusMirrorTest.moc"
