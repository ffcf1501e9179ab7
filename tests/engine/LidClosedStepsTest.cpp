// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "CoordinatedMachine.h"

#include "support/TestSupport.h"

#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// The coordinator with lid-closed mode: what it has the mode do, and when.
class LidClosedStepsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m = std::make_unique<CoordinatedMachine>();
        m->store.values
            = {{u"clamshellEnabled"_s, true}, {u"clamshellOnboardingComplete"_s, true}, {u"lastHelperBuild"_s, u"7"_s}};
        m->lid.present = true;
        m->lid.closed = false;
    }

    void sleepIsSwitchedOffExactlyWhileTheMachineIsKeptAwake()
    {
        m->helper.current = HelperStatus::enabled;
        m->start();
        QCOMPARE(m->helper.calls, QStringList());
        QSignalSpy changes(&*m->coordinator, &AwakeCoordinator::clamshellActiveChanged);
        m->run("claude\n");
        m->helper.connection->reply(true);
        QVERIFY(m->coordinator->clamshellActive());
        QCOMPARE(changes.count(), 1);
        CoordinatedMachine::settle();
        QCOMPARE(m->helper.calls, (QStringList{u"on"_s, u"heartbeat"_s}));
        m->run("");
        m->helper.connection->reply(true);
        QVERIFY(!m->coordinator->clamshellActive());
        QCOMPARE(m->helper.calls.constLast(), u"off"_s);
        QCOMPARE(changes.count(), 2);
    }

    void withoutTheWishSleepIsLeftAlone()
    {
        m->store.values[u"clamshellEnabled"_s] = false;
        m->helper.current = HelperStatus::enabled;
        m->processTable.output = "claude\n";
        m->start();
        QCOMPARE(m->helper.calls, QStringList());
        m->lidClosed->setClamshellEnabled(true);
        CoordinatedMachine::settle();
        QCOMPARE(m->helper.calls, QStringList{u"on"_s});
        m->helper.connection->reply(true);
        m->lidClosed->setClamshellEnabled(false);
        CoordinatedMachine::settle();
        QCOMPARE(m->helper.calls.constLast(), u"off"_s);
    }

    void aPauseSwitchesSleepOnAgain()
    {
        startActive();
        m->setThermal(ThermalLevel::critical);
        QVERIFY(!m->coordinator->clamshellActive());
        QVERIFY(!m->sleepControl.isOverridden());
        QCOMPARE(m->sleepControl.calls, (QStringList{u"ask"_s, u"end"_s, u"sleep"_s}));
    }

    void switchingTarvikOffSwitchesSleepOnAgain()
    {
        startActive();
        m->settings->setIsEnabled(false);
        CoordinatedMachine::settle();
        QVERIFY(!m->sleepControl.isOverridden());
        QVERIFY(!m->coordinator->clamshellActive());
        QVERIFY(!m->power->lidClosed());
    }

    void aMachineWithoutALidIsNeverAskedForAnything()
    {
        m->store.values.clear();
        m->lid.present = false;
        m->helper.current = HelperStatus::notRegistered;
        m->processTable.output = "claude\n";
        m->start();
        m->lidClosed->setClamshellEnabled(true);
        CoordinatedMachine::settle();
        QVERIFY(m->coordinator->isAwake());
        QCOMPARE(m->sleepControl.calls, QStringList());
        QCOMPARE(m->shown, QStringList());
    }

    void aLidThatBecomesKnownCountsAtOnce()
    {
        m->lid.present.reset();
        m->helper.current = HelperStatus::enabled;
        m->processTable.output = "claude\n";
        m->start();
        QCOMPARE(m->helper.calls, QStringList());
        m->lid.setPresent(true);
        QCOMPARE(m->helper.calls, QStringList{u"on"_s});
    }

    void aHelperThatBecomesKnownCountsAtOnce()
    {
        m->processTable.output = "claude\n";
        m->start();
        QVERIFY(!m->coordinator->helperInstalled());
        QSignalSpy changes(&*m->coordinator, &AwakeCoordinator::helperChanged);
        m->helper.setStatus(HelperStatus::enabled);
        CoordinatedMachine::settle();
        QVERIFY(changes.count() > 0);
        QVERIFY(m->coordinator->helperInstalled());
        QCOMPARE(m->helper.calls, QStringList{u"on"_s});
        QCOMPARE(m->shown, QStringList());
    }

    void aFirstRunIntroducesTheModeOnceThereIsWork()
    {
        m->store.values = {{u"lastHelperBuild"_s, u"7"_s}};
        m->helper.current = HelperStatus::notRegistered;
        m->start();
        QCOMPARE(m->shown, QStringList());
        m->run("claude\n");
        QCOMPARE(m->shown, QStringList{u"onboarding"_s});
        QCOMPARE(m->sleepControl.calls, QStringList{u"ask"_s});
        m->sleepControl.grant();
        m->run("claude\ncodex\n");
        QCOMPARE(m->shown.size(), 1);
    }

    void anApprovedHelperIsAskedInPlaceOfAnAdministrator()
    {
        m->helper.current = HelperStatus::requiresApproval;
        m->processTable.output = "claude\n";
        m->start();
        QVERIFY(m->coordinator->helperNeedsApproval());
        refuse();
        m->helper.setStatus(HelperStatus::enabled);
        CoordinatedMachine::settle();
        QCOMPARE(m->helper.calls, QStringList{u"on"_s});
        QCOMPARE(m->shown, QStringList{u"restart alert"_s});
    }

    void theHelpersRefusalIsPublished()
    {
        m->helper.current = HelperStatus::enabled;
        m->processTable.output = "claude\n";
        m->start();
        QSignalSpy changes(&*m->coordinator, &AwakeCoordinator::helperChanged);
        m->helper.connection->reply(false, u"No."_s);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(m->coordinator->lastHelperError(), u"No."_s);
        QVERIFY(!m->coordinator->clamshellActive());
    }

    void aHelperThatIsKilledIsAskedAgainAtOnce()
    {
        m->helper.current = HelperStatus::enabled;
        m->processTable.output = "claude\n";
        m->start();
        m->helper.connection->reply(true);
        m->helper.connection->interrupt();
        QVERIFY(!m->coordinator->clamshellActive());
        CoordinatedMachine::settle();
        QCOMPARE(m->helper.calls.constLast(), u"on"_s);
    }

    void nobodyIsPromptedAgainByTheClockOrAReading_data()
    {
        QTest::addColumn<std::function<void(CoordinatedMachine & machine)>>("happen");
        using Happen = std::function<void(CoordinatedMachine & machine)>;
        QTest::newRow("a minute of a session")
            << Happen([](CoordinatedMachine& machine) { machine.clock.advance(90s); });
        QTest::newRow("the end of a session")
            << Happen([](CoordinatedMachine& machine) { machine.clock.advance(31min); });
        QTest::newRow("the battery") << Happen([](CoordinatedMachine& machine) { machine.setPower(false, 79); });
        QTest::newRow("thermal") << Happen([](CoordinatedMachine& machine) { machine.setThermal(ThermalLevel::fair); });
        QTest::newRow("a status of the helper")
            << Happen([](CoordinatedMachine& machine) { machine.helper.setStatus(HelperStatus::notFound); });
    }

    void nobodyIsPromptedAgainByTheClockOrAReading()
    {
        QFETCH(std::function<void(CoordinatedMachine & machine)>, happen);
        startRefused();
        happen(*m);
        CoordinatedMachine::settle();
        QVERIFY(m->coordinator->isAwake());
        QCOMPARE(m->sleepControl.calls, QStringList{u"ask"_s});
    }

    void whatSomebodyDoesPromptsAgain_data()
    {
        QTest::addColumn<std::function<void(CoordinatedMachine & machine)>>("happen");
        using Happen = std::function<void(CoordinatedMachine & machine)>;
        QTest::newRow("an agent starts") << Happen([](CoordinatedMachine& machine) { machine.run("claude\ncodex\n"); });
        QTest::newRow("a turn begins") << Happen([](CoordinatedMachine& machine) {
            machine.hook({{u"action"_s, u"acquire"_s}, {u"session"_s, u"x"_s}, {u"tool"_s, u"codex"_s}});
        });
        QTest::newRow("a setting changes")
            << Happen([](CoordinatedMachine& machine) { machine.settings->setKeepDisplayAwake(true); });
        QTest::newRow("a session is changed")
            << Happen([](CoordinatedMachine& machine) { machine.coordinator->setTimedSession(60); });
        QTest::newRow("the lid moves") << Happen([](CoordinatedMachine& machine) {
            machine.lid.closed = true;
            machine.lid.announce();
        });
        QTest::newRow("a setting changes amid a reading") << Happen([](CoordinatedMachine& machine) {
            machine.settings->setKeepDisplayAwake(true);
            machine.lidClosed->evaluationNeeded();
        });
    }

    void whatSomebodyDoesPromptsAgain()
    {
        QFETCH(std::function<void(CoordinatedMachine & machine)>, happen);
        startRefused();
        happen(*m);
        CoordinatedMachine::settle();
        QCOMPARE(m->sleepControl.calls, (QStringList{u"ask"_s, u"ask"_s}));
    }

    void anOverrideThatIsLostPromptsOnlyWhenSomethingHappens()
    {
        startActive();
        m->sleepControl.lose();
        QVERIFY(!m->coordinator->clamshellActive());
        CoordinatedMachine::settle();
        QCOMPARE(m->sleepControl.calls, (QStringList{u"ask"_s, u"end"_s, u"sleep"_s}));
        m->run("claude\ncodex\n");
        QCOMPARE(m->sleepControl.calls.constLast(), u"ask"_s);
    }

    void closingTheLidSwitchesTheDisplayOffOnceForEachClosure()
    {
        m->processTable.output = "claude\n";
        m->start();
        setLid(true);
        m->setPower(false, 50);
        m->run("claude\ncodex\n");
        QCOMPARE(m->display.calls, QStringList{u"sleep"_s});
        setLid(false);
        setLid(true);
        QCOMPARE(m->display.calls, (QStringList{u"sleep"_s, u"wake"_s, u"sleep"_s}));
    }

    void theDisplayGoesOffWithTheLidWhetherOrNotSleepIsSwitchedOff()
    {
        m->store.values[u"clamshellEnabled"_s] = false;
        m->processTable.output = "claude\n";
        m->start();
        setLid(true);
        QCOMPARE(m->display.calls, QStringList{u"sleep"_s});
    }

    void theWishToSwitchTheDisplayOffCountsWhileTheLidIsClosed()
    {
        m->store.values[u"screenOffOnLidClose"_s] = false;
        m->processTable.output = "claude\n";
        m->start();
        setLid(true);
        QCOMPARE(m->display.calls, QStringList());
        m->settings->setScreenOffOnLidClose(true);
        CoordinatedMachine::settle();
        QCOMPARE(m->display.calls, QStringList{u"sleep"_s});
    }

    void theEndOfWorkMakesTheNextClosureCountAsNew()
    {
        m->processTable.output = "claude\n";
        m->start();
        setLid(true);
        m->run("");
        QVERIFY(!m->power->lidClosed());
        m->run("claude\n");
        QCOMPARE(m->display.calls, (QStringList{u"sleep"_s, u"sleep"_s}));
    }

    void theDisplayComesBackWhenTheLidOpensAfterTheWork()
    {
        m->processTable.output = "claude\n";
        m->start();
        setLid(true);
        m->run("");
        m->lid.closed = false;
        m->clock.advance(ScreenBlank::lidPollPeriod);
        QCOMPARE(m->display.calls, (QStringList{u"sleep"_s, u"wake"_s}));
    }

    void theDetailsTellOfAClosedLidOnlyWhileSleepIsSwitchedOff()
    {
        m->helper.current = HelperStatus::enabled;
        m->processTable.output = "claude\n";
        m->start();
        setLid(true);
        QCOMPARE(m->coordinator->statusDetails(), QString());
        m->helper.connection->reply(true);
        CoordinatedMachine::settle();
        QCOMPARE(m->coordinator->statusDetails(), u"lid closed"_s);
        setLid(false);
        QCOMPARE(m->coordinator->statusDetails(), QString());
    }

    void theEndOfTheCoordinatorSwitchesSleepOnAgain()
    {
        startActive();
        m->coordinator.reset();
        QVERIFY(!m->sleepControl.isOverridden());
        QVERIFY(!m->lidClosed->clamshellActive());
        m->lidClosed.reset();
        QCOMPARE(m->sleepControl.calls, (QStringList{u"ask"_s, u"end"_s, u"sleep"_s}));
    }

private:
    /// Sleep is switched off with an administrator's rights.
    void startActive()
    {
        m->helper.current = HelperStatus::notRegistered;
        m->processTable.output = "claude\n";
        m->start();
        m->sleepControl.grant();
        CoordinatedMachine::settle();
        QVERIFY(m->coordinator->clamshellActive());
    }

    void refuse()
    {
        expectLog(QtCriticalMsg, u"^pmset disablesleep failed: Request dismissed$"_s);
        m->sleepControl.refuse(u"Request dismissed"_s);
    }

    /// An administrator has refused, and a timed session runs beside the work.
    void startRefused()
    {
        m->helper.current = HelperStatus::notRegistered;
        m->setPower(false, 80);
        m->processTable.output = "claude\n";
        m->start();
        m->coordinator->setTimedSession(30);
        QCOMPARE(m->sleepControl.calls, QStringList{u"ask"_s});
        refuse();
        CoordinatedMachine::settle();
    }

    void setLid(bool isClosed)
    {
        m->lid.closed = isClosed;
        m->lid.announce();
    }

    std::unique_ptr<CoordinatedMachine> m;
};

QTEST_GUILESS_MAIN(LidClosedStepsTest)
#include "LidClosedStepsTest.moc"
