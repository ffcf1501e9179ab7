// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "CoordinatedMachine.h"

#include "hotkey/LockScreen.h"
#include "support/TestSupport.h"

#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class AwakeCoordinatorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m = std::make_unique<CoordinatedMachine>();
    }

    void startsDozingWithNothingToWatch()
    {
        m->start();
        QCOMPARE(texts(),
            (QStringList{
                u"Watching"_s, u"Dozing — nothing to watch"_s, u"Nothing running to keep awake for"_s, QString()}));
        QVERIFY(!m->coordinator->isAwake() && !m->coordinator->isPaused());
        QVERIFY(m->assertions.calls.isEmpty());
        QVERIFY(m->journalLines().isEmpty());
    }

    void theAssertionIsHeldExactlyWhileAnAgentRuns()
    {
        m->start();
        m->run("claude\ncodex\n");
        QVERIFY(m->assertions.isSystemHeld());
        QVERIFY(!m->assertions.isDisplayHeld());
        QCOMPARE(texts(), (QStringList{u"Awake"_s, u"Awake · 2 agents"_s, u"Claude Code, Codex"_s, QString()}));
        m->run("codex\n");
        QCOMPARE(m->coordinator->statusReason(), u"Awake · 1 agent"_s);
        m->run("");
        QVERIFY(!m->assertions.isSystemHeld());
        QCOMPARE(m->assertions.calls.last(), u"release PreventUserIdleSystemSleep"_s);
        QCOMPARE(m->journalLines(), (QStringList{u"on: Awake · 2 agents"_s, u"off: Dozing — nothing to watch"_s}));
    }

    void switchingANotificationOnAsksForPermissionAtThatMoment()
    {
        m->store.values[u"notifyOnPause"_s] = false;
        m->start();
        QCOMPARE(m->notifications.authorizationRequests, 0);
        m->settings->setNotifyOnToggle(true);
        QCOMPARE(m->notifications.authorizationRequests, 1);
        m->settings->setNotifyOnPause(true);
        QCOMPARE(m->notifications.authorizationRequests, 2);
        m->settings->setNotifyOnPause(false);
        m->settings->setNotifyOnToggle(false);
        QCOMPARE(m->notifications.authorizationRequests, 2);
    }

    void oneEvaluationActsThenPublishesThenRecords()
    {
        m->store.values[u"notifyOnToggle"_s] = true;
        m->start();
        m->store.writes.clear();
        QStringList order;
        auto* coordinator = &*m->coordinator;
        connect(coordinator, &AwakeCoordinator::isAwakeChanged, this, [&] {
            order.append(m->assertions.calls);
            order.append(u"lid reads "_s + QString::number(m->lid.reads));
            order.append(u"isAwake, reason is "_s + coordinator->statusReason());
            order.append(u"journal "_s + QString::number(m->journal->entries().size()));
        });
        connect(coordinator, &AwakeCoordinator::statusReasonChanged, this, [&] { order.append(u"reason"_s); });
        connect(coordinator, &AwakeCoordinator::statusSubtitleChanged, this, [&] { order.append(u"subtitle"_s); });
        connect(&*m->journal, &Journal::entriesChanged, this, [&] {
            order.append(u"journal entry, notified "_s + QString::number(m->notifications.posted.size()));
        });
        connect(coordinator, &AwakeCoordinator::evaluated, this, [&] {
            order.append(u"done, notified "_s + QString::number(m->notifications.posted.size()));
        });
        m->run("claude\n");
        QCOMPARE(order,
            (QStringList{u"create PreventUserIdleSystemSleep Tarvik"_s,
                u"lid reads 1"_s,
                u"isAwake, reason is Awake · 1 agent"_s,
                u"journal 0"_s,
                u"reason"_s,
                u"subtitle"_s,
                u"journal entry, notified 0"_s,
                u"done, notified 1"_s}));
    }

    void severalSettingsInOneTurnAreOneEvaluationThatSeesTheNewValues()
    {
        m->processTable.output = "claude\n";
        m->start();
        QSignalSpy evaluated(&*m->coordinator, &AwakeCoordinator::evaluated);
        m->settings->setKeepDisplayAwake(true);
        m->settings->setIsEnabled(false);
        m->settings->setIsEnabled(true);
        QCOMPARE(evaluated.count(), 0);
        QVERIFY(!m->assertions.isDisplayHeld());
        CoordinatedMachine::settle();
        QCOMPARE(evaluated.count(), 1);
        QVERIFY(m->assertions.isDisplayHeld());
        m->settings->setKeepDisplayAwake(false);
        CoordinatedMachine::settle();
        QCOMPARE(evaluated.count(), 2);
        QVERIFY(!m->assertions.isDisplayHeld());
    }

    void switchingOffWhileAwakeReleasesEverythingAndIsRecorded()
    {
        m->processTable.output = "claude\n";
        m->store.values[u"keepDisplayAwake"_s] = true;
        m->store.values[u"notifyOnToggle"_s] = true;
        m->start();
        QVERIFY(m->assertions.isSystemHeld() && m->assertions.isDisplayHeld());
        m->lid.closed = true;
        m->settings->setIsEnabled(false);
        CoordinatedMachine::settle();
        QVERIFY(!m->assertions.isSystemHeld() && !m->assertions.isDisplayHeld());
        QVERIFY(!m->coordinator->isAwake() && m->coordinator->isPaused());
        QCOMPARE(texts(), (QStringList{u"Off"_s, u"Off"_s, u"Not watching"_s, QString()}));
        QVERIFY2(!m->power->lidClosed(), "lid polling has stopped");
        QCOMPARE(m->journalLines(), (QStringList{u"on: Awake · 1 agent"_s, u"off: Off"_s}));
        QCOMPARE(m->notifications.texts().last(), u"Tarvik stopped keeping your Mac awake: Off"_s);
    }

    void switchingOnAgainIsANewStart()
    {
        m->processTable.output = "claude\n";
        m->store.values[u"isEnabled"_s] = false;
        m->start();
        QVERIFY(m->coordinator->isPaused());
        QVERIFY(m->journalLines().isEmpty());
        m->settings->setIsEnabled(true);
        CoordinatedMachine::settle();
        QCOMPARE(m->journalLines(), QStringList{u"on: Awake · 1 agent"_s});
    }

    void switchingOffWhilePausedWritesNothing()
    {
        m->processTable.output = "claude\n";
        m->thermalState.current = ThermalLevel::critical;
        m->start();
        m->settings->setIsEnabled(false);
        CoordinatedMachine::settle();
        QCOMPARE(m->journalLines(), QStringList{u"paused: Paused — Mac is running hot"_s});
    }

    void aPauseIsRecordedAndNotifiedAndEndsAsResumed()
    {
        m->store.values[u"requireAC"_s] = true;
        m->store.values[u"notifyOnToggle"_s] = true;
        m->setPower(true, 80);
        m->processTable.output = "claude\n";
        m->start();
        m->setPower(false, 80);
        QVERIFY(!m->assertions.isSystemHeld());
        QVERIFY(m->coordinator->isPaused() && !m->coordinator->isAwake());
        QCOMPARE(texts(), (QStringList{u"Paused"_s, u"Paused — on battery"_s, u"running on battery"_s, QString()}));
        m->setPower(true, 80);
        QVERIFY(m->assertions.isSystemHeld());
        QCOMPARE(m->coordinator->statusDetails(), u"charging 80%"_s);
        QCOMPARE(m->journalLines(),
            (QStringList{u"on: Awake · 1 agent"_s, u"paused: Paused — on battery"_s, u"resumed: Awake · 1 agent"_s}));
        QCOMPARE(m->notifications.texts(),
            (QStringList{u"Tarvik is keeping your Mac awake: Awake · 1 agent"_s,
                u"Tarvik paused: Paused — on battery"_s,
                u"Tarvik is keeping your Mac awake: Awake · 1 agent"_s}));
    }

    void aBatteryThatFallsOnIsNoNewPause()
    {
        m->store.values[u"batteryLimitEnabled"_s] = true;
        m->setPower(false, 15);
        m->processTable.output = "claude\n";
        m->start();
        QCOMPARE(m->coordinator->statusSubtitle(), u"battery 15% is below 20%"_s);
        m->setPower(false, 14);
        QCOMPARE(m->coordinator->statusReason(), u"Paused — battery 14% < 20%"_s);
        QCOMPARE(m->coordinator->statusDetails(), QString());
        QCOMPARE(m->journalLines(), QStringList{u"paused: Paused — battery 15% < 20%"_s});
        QCOMPARE(m->notifications.posted.size(), 1);
    }

    void anotherReasonIsANewPause()
    {
        m->store.values[u"requireAC"_s] = true;
        m->setPower(false, 80);
        m->processTable.output = "claude\n";
        m->start();
        m->setThermal(ThermalLevel::serious);
        QCOMPARE(m->journalLines(),
            (QStringList{u"paused: Paused — on battery"_s, u"paused: Paused — Mac is running hot"_s}));
        QCOMPARE(m->coordinator->statusDetails(), u"on battery 80%"_s);
        m->setThermal(ThermalLevel::critical);
        QCOMPARE(m->notifications.posted.size(), 2);
    }

    void aPauseThatEndsForLackOfWorkIsNotRecorded()
    {
        m->thermalState.current = ThermalLevel::serious;
        m->processTable.output = "claude\n";
        m->start();
        m->run("");
        QCOMPARE(m->coordinator->statusReason(), u"Dozing — nothing to watch"_s);
        QVERIFY(!m->coordinator->isPaused());
        QCOMPARE(m->journalLines().size(), 1);
        m->setThermal(ThermalLevel::nominal);
        m->run("claude\n");
        QCOMPARE(m->journalLines().last(), u"on: Awake · 1 agent"_s);
    }

    void pausesAreSilentWhenTheUserWantsThemSo()
    {
        m->store.values[u"notifyOnPause"_s] = false;
        m->thermalState.current = ThermalLevel::serious;
        m->processTable.output = "claude\n";
        m->start();
        QVERIFY(m->notifications.posted.isEmpty());
        QCOMPARE(m->journalLines().size(), 1);
    }

    void aClosedLidLetsTheDisplaySleepAndKeepsTheSystemAwake()
    {
        m->store.values[u"keepDisplayAwake"_s] = true;
        m->processTable.output = "claude\n";
        m->start();
        QVERIFY(m->assertions.isDisplayHeld());
        m->lid.closed = true;
        m->clock.advance(5s);
        QVERIFY(m->assertions.isSystemHeld());
        QVERIFY(!m->assertions.isDisplayHeld());
        m->settings->setScreenOffOnLidClose(false);
        CoordinatedMachine::settle();
        QVERIFY(m->assertions.isDisplayHeld());
        m->settings->setScreenOffOnLidClose(true);
        m->lid.closed = false;
        m->clock.advance(5s);
        QVERIFY(m->assertions.isDisplayHeld());
    }

    void aLidThatIsClosedWhenWorkBeginsIsNoticedAtOnce()
    {
        m->store.values[u"keepDisplayAwake"_s] = true;
        m->lid.closed = true;
        m->start();
        m->run("claude\n");
        QVERIFY(m->assertions.isSystemHeld());
        QVERIFY(!m->assertions.isDisplayHeld());
        QCOMPARE(m->journalLines(), QStringList{u"on: Awake · 1 agent"_s});
    }

    void theLidIsOnlyWatchedWhileAwake()
    {
        m->start();
        m->clock.advance(60s);
        QCOMPARE(m->lid.reads, 0);
        m->run("claude\n");
        QCOMPARE(m->lid.reads, 1);
        m->clock.advance(10s);
        QCOMPARE(m->lid.reads, 3);
        m->run("");
        m->clock.advance(60s);
        QCOMPARE(m->lid.reads, 3);
    }

    void pluggingInSwitchesOnExactlyOnce()
    {
        m->store.values[u"isEnabled"_s] = false;
        m->setPower(false, 50);
        m->processTable.output = "claude\n";
        m->start();
        m->setPower(true, 50);
        QVERIFY(m->settings->isEnabled());
        QCOMPARE(m->store.values[u"isEnabled"_s], QVariant(true));
        CoordinatedMachine::settle();
        m->settings->setIsEnabled(false);
        CoordinatedMachine::settle();
        m->setPower(true, 51);
        QVERIFY2(!m->settings->isEnabled(), "power was connected already");
        QCOMPARE(m->journalLines(),
            (QStringList{u"on: Switched on — plugged in"_s, u"on: Awake · 1 agent"_s, u"off: Off"_s}));
        m->setPower(false, 51);
        m->setPower(true, 51);
        QVERIFY(m->settings->isEnabled());
    }

    void pluggingInSwitchesNothingOnAgainstTheUsersWish_data()
    {
        QTest::addColumn<bool>("enableOnAC");
        QTest::addColumn<bool>("hasBattery");
        QTest::newRow("not wanted") << false << true;
        QTest::newRow("no battery") << true << false;
    }

    void pluggingInSwitchesNothingOnAgainstTheUsersWish()
    {
        QFETCH(bool, enableOnAC);
        QFETCH(bool, hasBattery);
        const std::optional<int> percent = hasBattery ? std::optional(50) : std::nullopt;
        m->store.values[u"isEnabled"_s] = false;
        m->store.values[u"enableOnAC"_s] = enableOnAC;
        m->setPower(false, percent);
        m->start();
        m->setPower(true, percent);
        QVERIFY(!m->settings->isEnabled());
        QVERIFY(m->journalLines().isEmpty());
    }

    void unpluggingNeverSwitchesOff()
    {
        m->setPower(true, 50);
        m->processTable.output = "claude\n";
        m->start();
        m->setPower(false, 50);
        QVERIFY(m->settings->isEnabled() && m->coordinator->isAwake());
    }

    void aFailedAssertionIsLoggedAndTriedAgainByTheNextEvaluation()
    {
        m->assertions.failWith = EACCES;
        m->processTable.output = "claude\n";
        expectLog(QtCriticalMsg, u"^Assertion PreventUserIdleSystemSleep failed: 13$"_s);
        m->start();
        QVERIFY2(m->coordinator->isAwake(), "the status still reads as awake");
        QVERIFY(!m->assertions.isSystemHeld());
        m->assertions.failWith.reset();
        m->run("claude\ncodex\n");
        QVERIFY(m->assertions.isSystemHeld());
        m->run("claude\n");
        QCOMPARE(m->assertions.calls.filter(u"create"_s).size(), 2);
    }

    void aLeaseKeepsAwakeAndStandsFirstInTheList()
    {
        m->start();
        m->hook({{u"action"_s, u"acquire"_s}, {u"session"_s, u"claude:1"_s}, {u"tool"_s, u"claude"_s}});
        QVERIFY(m->assertions.isSystemHeld());
        QCOMPARE(texts(), (QStringList{u"Awake"_s, u"Awake"_s, u"Claude Code"_s, QString()}));
        m->run("codex\n");
        QCOMPARE(m->coordinator->activeList(), (QStringList{u"Claude Code"_s, u"Codex"_s}));
        QCOMPARE(m->coordinator->statusReason(), u"Awake · 1 agent"_s);
        m->run("");
        m->hook({{u"action"_s, u"release"_s}, {u"session"_s, u"claude:1"_s}});
        QVERIFY(!m->assertions.isSystemHeld());
        QCOMPARE(m->journalLines(), (QStringList{u"on: Awake"_s, u"off: Dozing — nothing to watch"_s}));
    }

    void aLeaseThatLapsesLetsTheMachineSleep()
    {
        m->start();
        m->hook({{u"action"_s, u"acquire"_s}, {u"session"_s, u"claude:1"_s}, {u"tool"_s, u"claude"_s}});
        m->clock.advance(900s);
        QVERIFY(m->coordinator->isAwake());
        m->clock.advance(1s);
        QVERIFY(!m->coordinator->isAwake());
        QVERIFY(!m->assertions.isSystemHeld());
    }

    void anAgentWithAHookIsLeftOutOfProcessDetection()
    {
        const HookSpec* claude = HookSpec::all.data();
        QVERIFY(m->hookFiles.install(*claude));
        m->start();
        m->run("claude\n");
        QVERIFY(!m->coordinator->isAwake());
        QVERIFY(m->hookFiles.uninstall(*claude));
        m->run("claude\n");
        QVERIFY(m->coordinator->isAwake());
    }

    void aTimedSessionKeepsAwakeUntilItsEnd()
    {
        m->start();
        m->coordinator->setTimedSession(30);
        QVERIFY(m->assertions.isSystemHeld());
        QCOMPARE(*m->coordinator->timedSessionEnd() - m->clock.now(), Seconds{1800});
        m->clock.advance(Seconds{0.001});
        m->coordinator->evaluate();
        QCOMPARE(texts(), (QStringList{u"Awake"_s, u"Awake — 30 min left"_s, u"Timed session"_s, u"30 min left"_s}));
        m->clock.advance(Seconds{1799.5});
        QVERIFY(m->coordinator->isAwake());
        m->clock.advance(Seconds{0.5});
        QVERIFY(!m->coordinator->isAwake());
        QVERIFY(!m->coordinator->timedSessionEnd());
        QCOMPARE(m->journalLines().last(), u"off: Dozing — nothing to watch"_s);
    }

    void theMinutesLeftAreCountedDownWhileNothingElseHappens()
    {
        m->start();
        QStringList shown;
        connect(&*m->coordinator, &AwakeCoordinator::statusReasonChanged, this, [&] {
            shown.append(m->coordinator->statusReason());
        });
        m->coordinator->setTimedSession(3);
        m->clock.advance(4min);
        // No time passes on the manual clock between the start and its evaluation, so three whole minutes are left.
        QCOMPARE(shown,
            (QStringList{u"Awake — 4 min left"_s,
                u"Awake — 3 min left"_s,
                u"Awake — 2 min left"_s,
                u"Dozing — nothing to watch"_s}));
    }

    void nothingCountsMinutesAfterTheSession()
    {
        m->start();
        const std::size_t before = m->clock.pending();
        QSignalSpy evaluated(&*m->coordinator, &AwakeCoordinator::evaluated);
        m->coordinator->setTimedSession(3);
        m->clock.advance(3min + 1s);
        QCOMPARE(m->clock.pending(), before);
        evaluated.clear();
        m->clock.advance(10min);
        QCOMPARE(evaluated.count(), 0);

        m->coordinator->setTimedSession(3);
        m->coordinator->setTimedSession({});
        QCOMPARE(m->clock.pending(), before);
    }

    void aNewSessionReplacesTheRunningOne()
    {
        m->start();
        m->coordinator->setTimedSession(10);
        m->clock.advance(5min);
        m->coordinator->setTimedSession(60);
        m->clock.advance(59min);
        QVERIFY(m->coordinator->isAwake());
        m->clock.advance(1min);
        QVERIFY(!m->coordinator->isAwake());
    }

    void cancellingASessionEndsItAtOnce()
    {
        m->start();
        m->coordinator->setTimedSession(10);
        m->coordinator->setTimedSession({});
        QVERIFY(!m->coordinator->isAwake());
        m->run("claude\n");
        m->clock.advance(20min);
        QVERIFY(m->coordinator->isAwake());
    }

    void endingASessionThatIsNotRunningIsHarmless()
    {
        m->start();
        m->coordinator->setTimedSession({});
        QVERIFY(!m->coordinator->isAwake());
        QVERIFY(m->journalLines().isEmpty());
    }

    void aSessionOfNoMinutesIsOverAtOnce()
    {
        m->start();
        m->coordinator->setTimedSession(0);
        QVERIFY(!m->coordinator->isAwake());
        m->clock.advance(1s);
        QVERIFY(!m->coordinator->timedSessionEnd());
    }

    void aSessionIsPausedByTheRulesLikeAnyWork()
    {
        m->store.values[u"requireAC"_s] = true;
        m->setPower(false, 40);
        m->start();
        m->coordinator->setTimedSession(10);
        QVERIFY(m->coordinator->isPaused());
        QCOMPARE(m->coordinator->statusReason(), u"Paused — on battery"_s);
        QCOMPARE(m->coordinator->statusDetails().right(8), u"min left"_s);
    }

    void theThermalStateTellsInTheDetailsWhenItDoesNotPause()
    {
        m->store.values[u"pauseWhenHot"_s] = false;
        m->setPower(true, 63);
        m->thermalState.current = ThermalLevel::critical;
        m->start();
        QCOMPARE(m->coordinator->statusDetails(), u"charging 63% · running very hot"_s);
    }

    void aScreenThatCannotBeLockedIsAnnouncedWhateverTheSettings()
    {
        m->store.values[u"notifyOnPause"_s] = false;
        m->start();
        m->hotKeys.press(LockShortcut::keyCode, LockShortcut::modifiers);
        expectLog(QtCriticalMsg, u"^Could not lock the screen: no locker$"_s);
        m->screenLock.answer(u"no locker"_s);
        m->coordinator->lockScreen();
        expectLog(QtCriticalMsg, u"^Could not lock the screen: no locker$"_s);
        m->screenLock.answer(u"no locker"_s);
        const QString text = u"Tarvik could not lock the screen: No locker"_s;
        QCOMPARE(m->notifications.texts(), (QStringList{text, text}));
    }

    void aScreenThatCannotBeLockedAfterTheEndIsOnlyLogged()
    {
        m->start();
        m->coordinator->lockScreen();
        m->coordinator.reset();
        expectLog(QtCriticalMsg, u"^Could not lock the screen: no locker$"_s);
        m->screenLock.answer(u"no locker"_s);
        QCOMPARE(m->notifications.texts(), QStringList());
    }

    void theShortcutLocksTheScreenForAsLongAsTheCoordinatorLives()
    {
        m->start();
        m->hotKeys.press(KeyCodes::ansiA, KeyModifiers::command | KeyModifiers::option);
        QCOMPARE(m->screenLock.requests, 1);
        QCOMPARE(m->coordinator->lockHotKeyState().status, HotKeyStatus::registered);
        m->coordinator.reset();
        QVERIFY(m->hotKeys.registered.isEmpty());
    }

    void destroyingTheCoordinatorReleasesEverythingAndSilencesTheMonitors()
    {
        m->store.values[u"keepDisplayAwake"_s] = true;
        m->processTable.output = "claude\n";
        m->start();
        m->coordinator.reset();
        QVERIFY(!m->assertions.isSystemHeld() && !m->assertions.isDisplayHeld());
        m->setPower(false, 3);
        m->setThermal(ThermalLevel::critical);
        m->run("");
        m->hook({{u"action"_s, u"acquire"_s}, {u"session"_s, u"x"_s}});
        QCOMPARE(m->journalLines().size(), 1);
    }

private:
    QStringList texts() const
    {
        return {m->coordinator->title(),
            m->coordinator->statusReason(),
            m->coordinator->statusSubtitle(),
            m->coordinator->statusDetails()};
    }

    std::unique_ptr<CoordinatedMachine> m;
};

QTEST_GUILESS_MAIN(AwakeCoordinatorTest)
#include "AwakeCoordinatorTest.moc"
