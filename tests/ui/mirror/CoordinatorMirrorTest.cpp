// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/CoordinatorMirror.h"

#include "bus/ServedTarvik.h"
#include "support/TestSupport.h"
#include "ui/mirror/MirrorTestSupport.h"

#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class CoordinatorMirrorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theMirrorShowsWhatTarvikShows()
    {
        ServedTarvik tarvik;
        CoordinatorMirror coordinator(m_client);
        QVERIFY(!coordinator.isConnected());
        QTRY_VERIFY(coordinator.isConnected());
        QCOMPARE(coordinator.isAwake(), false);
        QCOMPARE(coordinator.title(), u"Watching"_s);
        QCOMPARE(coordinator.statusReason(), tarvik.machine.coordinator->statusReason());
        QCOMPARE(coordinator.statusSubtitle(), u"Nothing running to keep awake for"_s);
    }

    void changesArriveWithTheirSignals()
    {
        ServedTarvik tarvik;
        CoordinatorMirror coordinator(m_client);
        QTRY_VERIFY(coordinator.isConnected());
        QSignalSpy awake(&coordinator, &CoordinatorMirror::isAwakeChanged);
        QSignalSpy paused(&coordinator, &CoordinatorMirror::isPausedChanged);
        tarvik.machine.run("claude\n");
        QTRY_COMPARE(coordinator.isAwake(), true);
        QCOMPARE(coordinator.statusSubtitle(), u"Claude Code"_s);
        QCOMPARE(awake.size(), 1);
        QCOMPARE(paused.size(), 0);
    }

    void everyFieldIsSetBeforeTheFirstSignal()
    {
        ServedTarvik tarvik;
        CoordinatorMirror coordinator(m_client);
        QTRY_VERIFY(coordinator.isConnected());
        QString titleSeen;
        connect(&coordinator, &CoordinatorMirror::isAwakeChanged, this, [&] { titleSeen = coordinator.title(); });
        tarvik.machine.run("claude\n");
        QTRY_COMPARE(titleSeen, u"Awake"_s);
    }

    void aSessionIsStartedReplacedAndCancelled()
    {
        ServedTarvik tarvik;
        CoordinatorMirror coordinator(m_client);
        QTRY_VERIFY(coordinator.isConnected());
        QCOMPARE(coordinator.timedSessionEnd(), 0.0);
        coordinator.setTimedSession(10);
        QTRY_VERIFY(coordinator.isTimedSessionActive());
        QCOMPARE(coordinator.statusReason(), u"Awake — 11 min left"_s);
        QCOMPARE(
            coordinator.timedSessionEnd(), tarvik.machine.coordinator->timedSessionEnd()->time_since_epoch().count());
        coordinator.setTimedSession(60);
        QTRY_COMPARE(coordinator.statusReason(), u"Awake — 61 min left"_s);
        coordinator.setTimedSession(0);
        QTRY_VERIFY(!coordinator.isTimedSessionActive());
        QCOMPARE(coordinator.timedSessionEnd(), 0.0);
    }

    void aSessionOfMoreThanAYearIsRefused()
    {
        ServedTarvik tarvik;
        CoordinatorMirror coordinator(m_client);
        QTRY_VERIFY(coordinator.isConnected());
        expectLog(QtWarningMsg, u"^SetTimedSession failed: A timed session lasts a year at most\\.$"_s);
        QSignalSpy answered(&coordinator, &CoordinatorMirror::timedSessionEndChanged);
        coordinator.setTimedSession(std::numeric_limits<int>::max());
        coordinator.setTimedSession(1);
        QTRY_COMPARE(answered.size(), 1);
        QCOMPARE(coordinator.statusReason(), u"Awake — 2 min left"_s);
    }

    void lockAndQuitReachTarvik()
    {
        ServedTarvik tarvik;
        CoordinatorMirror coordinator(m_client);
        coordinator.lockScreen();
        coordinator.quit();
        QTRY_COMPARE(tarvik.asked, (QStringList{u"lock"_s, u"quit"_s}));
    }

private:
    QDBusConnection m_client = mirrorConnection();
};

QTEST_GUILESS_MAIN(CoordinatorMirrorTest)
#include "CoordinatorMirrorTest.moc"
