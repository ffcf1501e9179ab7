// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "lidclosed/LidClosedMode.h"

#include "core/AppSettings.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeDisplayPower.h"
#include "fakes/FakeHelperService.h"
#include "fakes/FakeLidSensor.h"
#include "fakes/FakeSettingsStore.h"
#include "fakes/FakeSleepControl.h"
#include "support/TestSupport.h"

#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto completeKey = u"clamshellOnboardingComplete"_s;
const LidClosedMode::Situation wanted{.awake = true, .clamshellEnabled = true, .hasLid = true, .mayAskAgain = false};
const LidClosedMode::Situation wantedAsking{
    .awake = true, .clamshellEnabled = true, .hasLid = true, .mayAskAgain = true};
const LidClosedMode::Situation unwanted{.awake = false, .clamshellEnabled = true, .hasLid = true, .mayAskAgain = true};

} // namespace

class LidClosedModeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_store.values = {{u"lastHelperBuild"_s, u"7"_s}, {completeKey, true}};
        m_store.writes.clear();
        m_helper.emplace();
        m_sleep.emplace();
        m_told.clear();
    }

    void cleanup()
    {
        m_mode.reset();
        m_settings.reset();
        QCOMPARE(m_clock.pending(), std::size_t{0});
        QVERIFY(!m_sleep->isOverridden());
    }

    // Through the helper.

    void theHelperSwitchesSleepOff()
    {
        start(HelperStatus::enabled);
        m_mode->update(wanted);
        QCOMPARE(m_helper->calls, QStringList{u"on"_s});
        QVERIFY(!m_mode->clamshellActive());
        m_helper->connection->reply(true);
        QVERIFY(m_mode->clamshellActive());
        QCOMPARE(m_helper->calls, (QStringList{u"on"_s, u"heartbeat"_s}));
        QCOMPARE(m_told, (QStringList{u"active"_s, u"evaluate"_s}));
        QCOMPARE(m_sleep->calls, QStringList());
    }

    void whatIsOnIsNotSwitchedOnAgain()
    {
        startOnThroughHelper();
        m_mode->update(wantedAsking);
        QCOMPARE(m_helper->calls.count(u"on"_s), 1);
    }

    void theHeartBeatsWhileTheOverrideIsOn()
    {
        startOnThroughHelper();
        m_clock.advance(91s);
        QCOMPARE(m_helper->calls.count(u"heartbeat"_s), 4);
        m_mode->update(unwanted);
        m_helper->connection->reply(true);
        m_clock.advance(5min);
        QCOMPARE(m_helper->calls.count(u"heartbeat"_s), 4);
    }

    void theHelperSwitchesSleepOnAgainAndTheLidMayCount()
    {
        startOnThroughHelper();
        m_mode->update(unwanted);
        QCOMPARE(m_helper->calls.constLast(), u"off"_s);
        QVERIFY(m_mode->clamshellActive());
        QCOMPARE(m_sleep->calls, QStringList());
        m_helper->connection->reply(true);
        QVERIFY(!m_mode->clamshellActive());
        QCOMPARE(m_sleep->calls, QStringList{u"sleep"_s});
    }

    void theSameRequestMayBeUnderWayTwice()
    {
        startOnThroughHelper();
        m_mode->update(unwanted);
        m_mode->update(unwanted);
        QCOMPARE(m_helper->calls.count(u"off"_s), 2);
        m_helper->connection->reply(true);
        m_helper->connection->reply(true);
        QVERIFY(!m_mode->clamshellActive());
        QCOMPARE(m_sleep->calls, QStringList{u"sleep"_s});
    }

    void switchingOffTheModeEndsTheOverride()
    {
        startOnThroughHelper();
        m_mode->update({.awake = true, .clamshellEnabled = false, .hasLid = true, .mayAskAgain = true});
        QCOMPARE(m_helper->calls.constLast(), u"off"_s);
    }

    void aWishThatEndsBeforeTheReplyIsUndoneAfterIt()
    {
        start(HelperStatus::enabled);
        m_mode->update(wanted);
        m_mode->update(unwanted);
        QCOMPARE(m_helper->calls, QStringList{u"on"_s});
        m_helper->connection->reply(true);
        QCOMPARE(m_helper->calls.constLast(), u"off"_s);
        m_helper->connection->reply(true);
        QVERIFY(!m_mode->clamshellActive());
        m_clock.advance(5min);
        QCOMPARE(m_helper->calls.count(u"heartbeat"_s), 1);
    }

    void aWishThatReturnsBeforeTheReplyIsFulfilledAfterIt()
    {
        startOnThroughHelper();
        m_mode->update(unwanted);
        m_mode->update(wanted);
        m_helper->connection->reply(true);
        QCOMPARE(m_helper->calls.constLast(), u"on"_s);
        m_helper->connection->reply(true);
        QVERIFY(m_mode->clamshellActive());
    }

    void theHelpersRefusalIsShownAndNobodyElseIsAsked()
    {
        start(HelperStatus::enabled);
        m_mode->update(wantedAsking);
        m_helper->connection->reply(false, u"Too many callers."_s);
        QCOMPARE(m_mode->lastHelperError(), u"Too many callers."_s);
        QVERIFY(!m_mode->clamshellActive());
        QCOMPARE(m_sleep->calls, QStringList());
        m_clock.advance(1min);
        QVERIFY(!m_helper->calls.contains(u"heartbeat"_s));
    }

    void aRefusalWithoutATextGetsOne()
    {
        start(HelperStatus::enabled);
        m_mode->update(wanted);
        m_helper->connection->reply(false, {});
        QCOMPARE(m_mode->lastHelperError(), u"The background helper didn’t respond."_s);
    }

    void aHelperThatDoesNotAnswerIsToldOf()
    {
        start(HelperStatus::enabled);
        m_mode->update(wanted);
        m_clock.advance(6.1s);
        QCOMPARE(m_mode->lastHelperError(), u"The background helper isn’t responding."_s);
        m_mode->update(wanted);
        QCOMPARE(m_helper->calls, (QStringList{u"on"_s, u"on"_s}));
    }

    void aConnectionThatFailsIsToldOf()
    {
        start(HelperStatus::enabled);
        m_mode->update(wanted);
        m_helper->connection->fail(u"Access denied"_s);
        QCOMPARE(m_mode->lastHelperError(), u"Access denied"_s);
    }

    void aHelperThatCannotBeConnectedToIsToldOf()
    {
        m_helper->isReachable = false;
        start(HelperStatus::enabled);
        m_mode->update(wanted);
        m_clock.advance(0s);
        QCOMPARE(m_mode->lastHelperError(), u"No helper connection"_s);
    }

    void aSuccessClearsWhatTheUserWasTold()
    {
        start(HelperStatus::enabled);
        m_mode->update(wanted);
        m_helper->connection->reply(false, u"Please try again."_s);
        m_mode->update(wanted);
        m_helper->connection->reply(true);
        QCOMPARE(m_mode->lastHelperError(), QString());
    }

    void aFailedSwitchOffLeavesTheOverrideOnUntilTheNextTime()
    {
        startOnThroughHelper();
        m_mode->update(unwanted);
        m_helper->connection->reply(false, u"Please try again."_s);
        QVERIFY(m_mode->clamshellActive());
        QCOMPARE(m_sleep->calls, QStringList());
        m_mode->update(unwanted);
        m_helper->connection->reply(true);
        QVERIFY(!m_mode->clamshellActive());
    }

    void aFailedSwitchOffIsTriedAgainThoughNothingHappens()
    {
        startOnThroughHelper();
        m_mode->update(unwanted);
        m_told.clear();
        m_clock.advance(6.1s);
        QCOMPARE(m_told, QStringList());
        m_clock.advance(5s);
        QCOMPARE(m_told, QStringList{u"evaluate"_s});
        m_mode->update(unwanted);
        QCOMPARE(m_helper->calls.count(u"off"_s), 2);
        m_helper->connection->reply(true);
        m_helper->connection->reply(true);
        m_clock.advance(1min);
        QCOMPARE(m_sleep->calls, QStringList{u"sleep"_s});
        QCOMPARE(m_told, (QStringList{u"evaluate"_s, u"active"_s, u"evaluate"_s}));
    }

    void aFailedSwitchOnIsTriedAgainThoughNothingHappens()
    {
        start(HelperStatus::enabled);
        m_mode->update(wanted);
        m_helper->connection->reply(false, u"The computer is just waking up."_s);
        m_told.clear();
        m_clock.advance(31s);
        QCOMPARE(m_told, QStringList{u"evaluate"_s});
        m_mode->update(wanted);
        m_helper->connection->reply(true);
        QVERIFY(m_mode->clamshellActive());
    }

    void afterAFailedSwitchOffTheHelperIsToldWhatIsWantedNext()
    {
        startOnThroughHelper();
        m_mode->update(unwanted);
        m_helper->connection->fail(u"Too late"_s);
        m_mode->update(wanted);
        QCOMPARE(m_helper->calls.constLast(), u"on"_s);
        m_helper->connection->reply(true);
        const qsizetype requests = m_helper->calls.count(u"on"_s);
        m_mode->update(wanted);
        QCOMPARE(m_helper->calls.count(u"on"_s), requests);
    }

    void whoHasStoodStillAsksAgain()
    {
        startOnThroughHelper();
        m_told.clear();
        m_clock.standStill(80s);
        QCOMPARE(m_told, QStringList{u"evaluate"_s});
        m_mode->update(wanted);
        QCOMPARE(m_helper->calls.count(u"on"_s), 2);
        m_helper->connection->reply(true);
        m_clock.advance(5min);
        m_mode->update(wanted);
        QCOMPARE(m_helper->calls.count(u"on"_s), 2);
    }

    void aHelperThatIsKilledIsAskedAgain()
    {
        startOnThroughHelper();
        m_told.clear();
        m_helper->connection->interrupt();
        QVERIFY(!m_mode->clamshellActive());
        QCOMPARE(m_told, (QStringList{u"active"_s, u"evaluate"_s}));
        // In case that nobody takes it again.
        QCOMPARE(m_sleep->calls, QStringList{u"sleep"_s});
        m_mode->update(wanted);
        QCOMPARE(m_helper->calls.constLast(), u"on"_s);
        m_helper->connection->reply(true);
        QVERIFY(m_mode->clamshellActive());
    }

    void aHelperThatIsKilledWhenTheWorkIsOverLeavesNothingAwake()
    {
        startOnThroughHelper();
        m_mode->update(unwanted);
        m_helper->connection->interrupt();
        m_mode->update(unwanted);
        QVERIFY(!m_mode->clamshellActive());
        QCOMPARE(m_sleep->calls, QStringList{u"sleep"_s});
    }

    void aConnectionThatIsLostIsMadeAgain()
    {
        startOnThroughHelper();
        m_helper->connection->invalidate();
        QVERIFY(!m_mode->clamshellActive());
        m_mode->update(wanted);
        QCOMPARE(m_helper->connects, 2);
        m_helper->connection->reply(true);
        QVERIFY(m_mode->clamshellActive());
    }

    void aConnectionThatIsLostInFlightChangesNothingElse()
    {
        start(HelperStatus::enabled);
        m_mode->update(wanted);
        FakeHelperConnection* const old = m_helper->connection;
        old->invalidate();
        old->fail(u"disconnected"_s);
        QVERIFY(!m_mode->clamshellActive());
        QCOMPARE(m_mode->lastHelperError(), u"disconnected"_s);
    }

    void aKilledHelperThatHeldNothingChangesNothing()
    {
        startOnThroughHelper();
        m_mode->update(unwanted);
        m_helper->connection->reply(true);
        m_told.clear();
        m_helper->connection->interrupt();
        QCOMPARE(m_told, QStringList());
    }

    // Through an administrator.

    void withoutAUsableHelperAnAdministratorIsAsked_data()
    {
        QTest::addColumn<HelperStatus>("status");
        QTest::newRow("not registered") << HelperStatus::notRegistered;
        QTest::newRow("not approved") << HelperStatus::requiresApproval;
        QTest::newRow("not found") << HelperStatus::notFound;
    }

    void withoutAUsableHelperAnAdministratorIsAsked()
    {
        QFETCH(HelperStatus, status);
        start(status);
        m_mode->update(wanted);
        QCOMPARE(m_sleep->calls, QStringList{u"ask"_s});
        QVERIFY(!m_mode->clamshellActive());
        m_sleep->grant();
        QVERIFY(m_mode->clamshellActive());
        QVERIFY(m_sleep->isOverridden());
        QCOMPARE(m_helper->calls, QStringList());
        QCOMPARE(m_told, (QStringList{u"active"_s, u"evaluate"_s}));
    }

    void endingTheOverrideTakesNoSecondPrompt()
    {
        startOnThroughAdministrator();
        m_mode->update(unwanted);
        QVERIFY(!m_mode->clamshellActive());
        QCOMPARE(m_sleep->calls, (QStringList{u"ask"_s, u"end"_s, u"sleep"_s}));
        m_mode->update(unwanted);
        QCOMPARE(m_sleep->calls.size(), 3);
    }

    void whilePromptedNobodyIsPromptedAgain()
    {
        start(HelperStatus::notRegistered);
        m_mode->update(wantedAsking);
        m_mode->update(wantedAsking);
        QCOMPARE(m_sleep->calls, QStringList{u"ask"_s});
    }

    void aPromptThatIsGrantedTooLateIsDroppedAtOnce()
    {
        start(HelperStatus::notRegistered);
        m_mode->update(wanted);
        m_mode->update(unwanted);
        m_sleep->grant();
        QVERIFY(!m_sleep->isOverridden());
        QVERIFY(!m_mode->clamshellActive());
        QCOMPARE(m_sleep->calls, (QStringList{u"ask"_s, u"end"_s}));
        m_mode->update(wanted);
        QCOMPARE(m_sleep->calls.constLast(), u"ask"_s);
    }

    void aPromptThatIsWantedAgainWhenItIsGrantedCounts()
    {
        start(HelperStatus::notRegistered);
        m_mode->update(wanted);
        m_mode->update(unwanted);
        m_mode->update(wanted);
        m_sleep->grant();
        QVERIFY(m_mode->clamshellActive());
        QCOMPARE(m_sleep->calls, QStringList{u"ask"_s});
    }

    void aRefusedPromptIsLoggedAndComesAgainOnlyForAReason()
    {
        start(HelperStatus::notRegistered);
        m_mode->update(wanted);
        expectLog(QtCriticalMsg, u"^pmset disablesleep failed: Request dismissed$"_s);
        m_sleep->refuse(u"Request dismissed"_s);
        QVERIFY(!m_mode->clamshellActive());
        QCOMPARE(m_mode->lastHelperError(), QString());
        QCOMPARE(m_told, QStringList());
        m_mode->update(wanted);
        QCOMPARE(m_sleep->calls, QStringList{u"ask"_s});
        m_mode->update(wantedAsking);
        QCOMPARE(m_sleep->calls, (QStringList{u"ask"_s, u"ask"_s}));
        m_sleep->grant();
        QVERIFY(m_mode->clamshellActive());
    }

    void anOverrideThatIsLostComesAgainOnlyForAReason()
    {
        startOnThroughAdministrator();
        m_told.clear();
        m_sleep->lose();
        QVERIFY(!m_mode->clamshellActive());
        QVERIFY(!m_sleep->isOverridden());
        QCOMPARE(m_told, (QStringList{u"active"_s, u"evaluate"_s}));
        m_mode->update(wanted);
        // Nobody is asked, and the machine does not stay awake with its lid closed.
        QCOMPARE(m_sleep->calls, (QStringList{u"ask"_s, u"end"_s, u"sleep"_s}));
        m_mode->update(wantedAsking);
        QCOMPARE(m_sleep->calls.constLast(), u"ask"_s);
    }

    void anOverrideThatIsLostIsAskedOfAHelperThatHasComeSince()
    {
        startOnThroughAdministrator();
        m_helper->setStatus(HelperStatus::enabled);
        QCOMPARE(m_helper->calls, QStringList());
        m_sleep->lose();
        m_mode->update(wanted);
        QCOMPARE(m_helper->calls, QStringList{u"on"_s});
    }

    void anOverrideOfAnAdministratorEndsAsSuchWhenTheHelperHasComeSince()
    {
        startOnThroughAdministrator();
        m_helper->setStatus(HelperStatus::enabled);
        m_mode->update(unwanted);
        QVERIFY(!m_sleep->isOverridden());
        QCOMPARE(m_helper->calls, QStringList());
        QVERIFY(!m_mode->clamshellActive());
    }

    void anOverrideOfTheHelperEndsAsSuchWhenItIsNoLongerUsable()
    {
        startOnThroughHelper();
        m_helper->setStatus(HelperStatus::requiresApproval);
        m_mode->update(unwanted);
        QCOMPARE(m_helper->calls.constLast(), u"off"_s);
        QCOMPARE(m_sleep->calls, QStringList());
    }

    void aPromptIsOfNoMoreUseWhenTheHelperHasComeMeanwhile()
    {
        start(HelperStatus::notRegistered);
        m_mode->update(wanted);
        m_helper->setStatus(HelperStatus::enabled);
        m_mode->update(wanted);
        m_helper->connection->reply(true);
        m_sleep->grant();
        QVERIFY(!m_sleep->isOverridden());
        QVERIFY(m_mode->clamshellActive());
    }

    // What must be known first.

    void nothingIsDoneBeforeTheHelpersStatusIsKnown()
    {
        m_store.values.remove(completeKey);
        start({});
        m_mode->update(wantedAsking);
        m_mode->setClamshellEnabled(true);
        QCOMPARE(m_helper->calls, QStringList());
        QCOMPARE(m_sleep->calls, QStringList());
        QCOMPARE(m_told, QStringList());
        m_helper->setStatus(HelperStatus::notRegistered);
        QCOMPARE(m_told, QStringList{u"evaluate"_s});
        m_mode->update(wanted);
        QCOMPARE(m_sleep->calls, QStringList{u"ask"_s});
        QVERIFY(m_told.contains(u"onboarding"_s));
    }

    void nothingIsDoneWithoutALid_data()
    {
        QTest::addColumn<std::optional<bool>>("hasLid");
        QTest::newRow("none") << std::optional(false);
        QTest::newRow("not known") << std::optional<bool>();
    }

    void nothingIsDoneWithoutALid()
    {
        QFETCH(std::optional<bool>, hasLid);
        m_store.values.remove(completeKey);
        start(HelperStatus::notRegistered);
        m_mode->update({.awake = true, .clamshellEnabled = true, .hasLid = hasLid, .mayAskAgain = true});
        m_mode->setClamshellEnabled(true);
        QCOMPARE(m_helper->calls, QStringList());
        QCOMPARE(m_sleep->calls, QStringList());
        QCOMPARE(m_told, QStringList());
        QVERIFY(m_settings->clamshellEnabled());
    }

    void whileTheHelperIsInstalledTheUserHasOnePrompt()
    {
        start(HelperStatus::notRegistered);
        m_mode->installHelper();
        m_mode->update(wantedAsking);
        QCOMPARE(m_sleep->calls, QStringList());
        m_helper->finish(u"Request dismissed"_s);
        QCOMPARE(m_mode->lastHelperError(), u"Request dismissed"_s);
        QVERIFY(m_told.contains(u"evaluate"_s));
        m_mode->update(wanted);
        QCOMPARE(m_sleep->calls, QStringList{u"ask"_s});
    }

    void aHelperThatIsReinstalledIsAskedAnew()
    {
        startOnThroughHelper();
        m_mode->reinstallHelper();
        m_helper->setStatus(HelperStatus::notRegistered);
        m_helper->connection->interrupt();
        m_mode->update(wantedAsking);
        QVERIFY(!m_sleep->calls.contains(u"ask"_s));
        m_helper->finish();
        m_clock.advance(1s);
        m_helper->setStatus(HelperStatus::enabled);
        m_mode->update(wantedAsking);
        QCOMPARE(m_helper->calls.count(u"on"_s), 1);
        m_helper->finish();
        QCOMPARE(m_told.constLast(), u"evaluate"_s);
        m_mode->update(wanted);
        QCOMPARE(m_helper->calls.count(u"on"_s), 2);
        QVERIFY(!m_sleep->calls.contains(u"ask"_s));
    }

    // The windows.

    void theIntroductionShowsItselfOnceInARun()
    {
        m_store.values.remove(completeKey);
        start(HelperStatus::notRegistered);
        m_mode->update(wanted);
        m_mode->update(wanted);
        m_mode->update(unwanted);
        m_mode->update(wantedAsking);
        QCOMPARE(m_told.count(u"onboarding"_s), 1);
        QCOMPARE(m_store.writes, QStringList());
        // The switch goes ahead all the same.
        QCOMPARE(m_sleep->calls, QStringList{u"ask"_s});
    }

    void theIntroductionIsShownByTheSwitchInTheSettings()
    {
        m_store.values.remove(completeKey);
        start(HelperStatus::requiresApproval);
        m_mode->update(unwanted);
        QCOMPARE(m_told, QStringList());
        m_mode->setClamshellEnabled(true);
        QCOMPARE(m_told, QStringList{u"onboarding"_s});
        QVERIFY(m_settings->clamshellEnabled());
        QCOMPARE(m_store.values[u"clamshellEnabled"_s], true);
        m_mode->setClamshellEnabled(true);
        QCOMPARE(m_told.size(), 1);
    }

    void switchingTheModeOffShowsNothing()
    {
        m_store.values.remove(completeKey);
        start(HelperStatus::notRegistered);
        m_mode->update(unwanted);
        m_mode->setClamshellEnabled(false);
        QCOMPARE(m_told, QStringList());
        QCOMPARE(m_store.values[u"clamshellEnabled"_s], false);
    }

    void withAUsableHelperThereIsNothingToIntroduce()
    {
        m_store.values.remove(completeKey);
        start(HelperStatus::enabled);
        m_mode->update(wanted);
        m_mode->setClamshellEnabled(true);
        QVERIFY(!m_told.contains(u"onboarding"_s));
    }

    void theIntroductionThatWasFinishedNeverComesBack()
    {
        m_store.values.remove(completeKey);
        start(HelperStatus::notRegistered);
        m_mode->update(wanted);
        m_mode->finishOnboarding();
        QCOMPARE(m_store.values[completeKey], true);
        m_mode->setClamshellEnabled(false);
        m_mode->setClamshellEnabled(true);
        m_helper->setStatus(HelperStatus::enabled);
        m_helper->setStatus(HelperStatus::notRegistered);
        m_mode->update(wanted);
        QCOMPARE(m_told.count(u"onboarding"_s), 1);
    }

    void aValueOfAnotherTypeHasNotFinishedIt()
    {
        m_store.values[completeKey] = u"true"_s;
        start(HelperStatus::notRegistered);
        m_mode->update(wanted);
        QCOMPARE(m_told.count(u"onboarding"_s), 1);
    }

    void aHelperThatHasBecomeUsableShowsTheRestartAlert()
    {
        start(HelperStatus::requiresApproval);
        m_mode->installHelper();
        QCOMPARE(m_told, (QStringList{u"login items"_s}));
        QCOMPARE(m_mode->lastHelperError(), u"Approve Tarvik in System Settings ▸ Login Items."_s);
        QVERIFY(m_mode->helperNeedsApproval());
        m_helper->setStatus(HelperStatus::enabled);
        QCOMPARE(m_told, (QStringList{u"login items"_s, u"evaluate"_s, u"restart alert"_s}));
        QVERIFY(m_mode->helperInstalled());
    }

    void relaunchingLeavesTimeForAnAnswer()
    {
        start(HelperStatus::enabled);
        m_mode->relaunch();
        m_clock.advance(0.2s);
        QCOMPARE(m_told, QStringList());
        m_clock.advance(0.2s);
        QCOMPARE(m_told, QStringList{u"relaunch"_s});
    }

    // The end.

    void quittingSendsTheSwitchOffAndDoesNotWait()
    {
        startOnThroughHelper();
        m_mode->restoreClamshell();
        QCOMPARE(m_helper->calls.constLast(), u"off"_s);
        QVERIFY(!m_mode->clamshellActive());
        QCOMPARE(m_sleep->calls, QStringList{u"sleep"_s});
        m_mode->restoreClamshell();
        QCOMPARE(m_helper->calls.count(u"off"_s), 1);
        m_clock.advance(5min);
        QCOMPARE(m_helper->calls.count(u"heartbeat"_s), 1);
    }

    void quittingEndsTheOverrideOfAnAdministrator()
    {
        startOnThroughAdministrator();
        m_mode->restoreClamshell();
        QCOMPARE(m_sleep->calls, (QStringList{u"ask"_s, u"end"_s, u"sleep"_s}));
        QVERIFY(!m_mode->clamshellActive());
    }

    void quittingWhatIsOffDoesNothing()
    {
        start(HelperStatus::enabled);
        m_mode->restoreClamshell();
        QCOMPARE(m_helper->calls, QStringList());
        QCOMPARE(m_sleep->calls, QStringList());
        QCOMPARE(m_told, QStringList());
    }

    void quittingDuringAPromptDropsWhatItBrings()
    {
        start(HelperStatus::notRegistered);
        m_mode->update(wanted);
        m_mode->restoreClamshell();
        m_sleep->grant();
        QVERIFY(!m_sleep->isOverridden());
        QVERIFY(!m_mode->clamshellActive());
    }

    void aPromptThatOutlivesTheModeBringsNothing()
    {
        start(HelperStatus::notRegistered);
        m_mode->update(wanted);
        m_mode.reset();
        m_sleep->grant();
        QVERIFY(!m_sleep->isOverridden());
    }

    void quittingDuringASwitchOnUndoesIt()
    {
        start(HelperStatus::enabled);
        m_mode->update(wanted);
        m_mode->restoreClamshell();
        m_helper->connection->reply(true);
        QCOMPARE(m_helper->calls.constLast(), u"off"_s);
    }

    void quittingDuringASwitchOffSendsItOnceMore()
    {
        startOnThroughHelper();
        m_mode->update(unwanted);
        m_mode->restoreClamshell();
        QVERIFY(!m_mode->clamshellActive());
        QCOMPARE(m_helper->calls.count(u"off"_s), 2);
        m_helper->connection->reply(true);
        QCOMPARE(m_sleep->calls, QStringList{u"sleep"_s});
    }

    void quittingDuringAnInstallationIsHarmless()
    {
        start(HelperStatus::notRegistered);
        m_mode->installHelper();
        m_mode.reset();
        m_helper->finish();
    }

    void destroyingTheModeRestoresSleep()
    {
        startOnThroughHelper();
        m_mode.reset();
        QCOMPARE(m_helper->calls.constLast(), u"off"_s);
        QCOMPARE(m_helper->living, 0);
    }

private:
    void start(std::optional<HelperStatus> status)
    {
        m_helper->current = status;
        m_settings.emplace(m_store);
        m_mode.emplace(*m_settings,
            m_store,
            LidClosedMode::Services{*m_helper, *m_sleep, m_display, m_lid, m_clock},
            u"7"_s,
            LidClosedMode::Actions{.showOnboarding = tell(u"onboarding"_s),
                .showRestartAlert = tell(u"restart alert"_s),
                .showLoginItems = tell(u"login items"_s),
                .relaunch = tell(u"relaunch"_s)});
        connect(&*m_mode, &LidClosedMode::clamshellActiveChanged, this, tell(u"active"_s));
        connect(&*m_mode, &LidClosedMode::evaluationNeeded, this, tell(u"evaluate"_s));
    }

    void startOnThroughHelper()
    {
        start(HelperStatus::enabled);
        m_mode->update(wanted);
        m_helper->connection->reply(true);
        QVERIFY(m_mode->clamshellActive());
    }

    void startOnThroughAdministrator()
    {
        start(HelperStatus::notRegistered);
        m_mode->update(wanted);
        m_sleep->grant();
        QVERIFY(m_mode->clamshellActive());
    }

    std::function<void()> tell(const QString& what)
    {
        return [this, what] { m_told.append(what); };
    }

    FakeClock m_clock;
    FakeSettingsStore m_store;
    FakeDisplayPower m_display;
    FakeLidSensor m_lid;
    std::optional<FakeHelperService> m_helper;
    std::optional<FakeSleepControl> m_sleep;
    std::optional<AppSettings> m_settings;
    std::optional<LidClosedMode> m_mode;
    QStringList m_told;
};

QTEST_GUILESS_MAIN(LidClosedModeTest)
#include "LidClosedModeTest.moc"
