// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "lidclosed/BackgroundHelper.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeHelperService.h"
#include "fakes/FakeSettingsStore.h"
#include "lidclosed/HelperManager.h"
#include "support/TestSupport.h"

#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto approveText = u"Approve Tarvik in System Settings ▸ Login Items."_s;
const auto approveAgainText = u"Approve Tarvik in System Settings ▸ Login Items, then try again."_s;
const auto buildKey = u"lastHelperBuild"_s;

} // namespace

class BackgroundHelperTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_service.emplace();
        m_store.values = {{buildKey, u"7"_s}};
        m_store.writes.clear();
        m_told.clear();
    }

    void cleanup()
    {
        m_helper.reset();
        m_manager.reset();
        QCOMPARE(m_clock.pending(), std::size_t{0});
    }

    void nothingIsKnownBeforeTheSystemHasAnswered()
    {
        start();
        QVERIFY(!m_helper->isKnown());
        QVERIFY(!m_helper->isInstalled());
        QVERIFY(!m_helper->needsApproval());
        m_helper->install();
        m_helper->reinstall();
        QCOMPARE(m_service->calls, QStringList());
        QCOMPARE(m_told, QStringList());
    }

    void theFirstAnswerSetsTheFieldsWithoutAnAlert()
    {
        start();
        m_service->setStatus(HelperStatus::enabled);
        QVERIFY(m_helper->isKnown());
        QVERIFY(m_helper->isInstalled());
        QCOMPARE(m_told, QStringList{u"evaluate"_s});
    }

    void anAnswerThatIsThereAtTheStartIsTheFirst()
    {
        start(HelperStatus::requiresApproval);
        QVERIFY(m_helper->isKnown());
        QVERIFY(m_helper->needsApproval());
        QVERIFY(!m_helper->isInstalled());
    }

    void anUnknownStatusStaysUnknown()
    {
        start();
        m_service->statusChanged();
        QVERIFY(!m_helper->isKnown());
    }

    void theSameBuildDoesNothing()
    {
        start(HelperStatus::enabled);
        QCOMPARE(m_service->calls, QStringList());
        QCOMPARE(m_store.writes, QStringList());
    }

    void aNewBuildSendsExactlyOneProbe()
    {
        start(HelperStatus::enabled, u"8"_s);
        QCOMPARE(m_service->calls, QStringList{u"version"_s});
        QCOMPARE(m_store.values[buildKey], u"8"_s);
        m_service->setStatus(HelperStatus::notRegistered);
        m_service->setStatus(HelperStatus::enabled);
        QCOMPARE(m_service->calls, QStringList{u"version"_s});
    }

    void aNewBuildWithoutAUsableHelperIsOnlyStored()
    {
        start(HelperStatus::requiresApproval, u"8"_s);
        QCOMPARE(m_service->calls, QStringList());
        QCOMPARE(m_store.values[buildKey], u"8"_s);
    }

    void aBuildWithoutANumberIsNotChecked()
    {
        start(HelperStatus::enabled, {});
        QCOMPARE(m_service->calls, QStringList());
        QCOMPARE(m_store.writes, QStringList());
    }

    void aFirstBuildIsANewOne()
    {
        m_store.values.clear();
        start(HelperStatus::enabled);
        QCOMPARE(m_service->calls, QStringList{u"version"_s});
    }

    void theBuildIsCheckedOnlyWhenTheStatusIsKnown()
    {
        start({}, u"8"_s);
        QCOMPARE(m_store.writes, QStringList());
        m_service->setStatus(HelperStatus::enabled);
        QCOMPARE(m_service->calls, QStringList{u"version"_s});
    }

    void aHelperThatAnswersAnythingIsNotReinstalled()
    {
        start(HelperStatus::enabled, u"8"_s);
        m_service->connection->reply(true, {});
        m_clock.advance(1min);
        QCOMPARE(m_service->calls, QStringList{u"version"_s});
    }

    void aHelperThatDoesNotAnswerTheProbeIsReinstalled()
    {
        start(HelperStatus::enabled, u"8"_s);
        m_told.clear();
        m_clock.advance(5.1s);
        QCOMPARE(m_service->calls, (QStringList{u"version"_s, u"unregister"_s}));
        m_service->finish();
        m_clock.advance(1s);
        QCOMPARE(m_service->calls.constLast(), u"register"_s);
        m_service->finish();
        QCOMPARE(m_helper->lastError(), u"Background helper reinstalled."_s);
        QCOMPARE(m_told, QStringList{u"evaluate"_s});
    }

    void aHelperThatCannotBeConnectedToIsReinstalled()
    {
        m_service->isReachable = false;
        start(HelperStatus::enabled, u"8"_s);
        m_clock.advance(0s);
        QCOMPARE(m_service->calls, QStringList{u"unregister"_s});
    }

    void aHelperWhoseConnectionFailsIsReinstalled()
    {
        start(HelperStatus::enabled, u"8"_s);
        m_service->connection->fail(u"gone"_s);
        QCOMPARE(m_service->calls, (QStringList{u"version"_s, u"unregister"_s}));
    }

    void approvingShowsTheRestartAlertOnce()
    {
        start(HelperStatus::requiresApproval);
        m_told.clear();
        m_service->setStatus(HelperStatus::enabled);
        QCOMPARE(m_told, (QStringList{u"evaluate"_s, u"restart"_s}));
        m_helper->refreshStatus();
        m_service->setStatus(HelperStatus::enabled);
        QCOMPARE(m_told.count(u"restart"_s), 1);
        QVERIFY(m_helper->isInstalled());
        QVERIFY(!m_helper->needsApproval());
    }

    void approvalIsNoticedWhenTheApplicationBecomesActive()
    {
        start(HelperStatus::requiresApproval);
        m_told.clear();
        m_service->current = HelperStatus::enabled;
        m_helper->refreshStatus();
        QCOMPARE(m_told, (QStringList{u"evaluate"_s, u"restart"_s}));
        QCOMPARE(m_service->calls, QStringList{u"refresh"_s});
        m_helper->refreshStatus();
        QCOMPARE(m_told.size(), 2);
    }

    void aHelperThatIsTakenAwayAndApprovedAgainIsNew()
    {
        start(HelperStatus::enabled);
        m_service->setStatus(HelperStatus::notFound);
        QVERIFY(!m_helper->isInstalled());
        m_service->setStatus(HelperStatus::enabled);
        QCOMPARE(m_told.count(u"restart"_s), 1);
    }

    void refreshingAnUnknownStatusOnlyAsksForIt()
    {
        start();
        m_helper->refreshStatus();
        QVERIFY(!m_helper->isKnown());
        QCOMPARE(m_service->calls, QStringList{u"refresh"_s});
    }

    void installingWhatNeedsApprovalDoesNotRegisterAgain()
    {
        start(HelperStatus::requiresApproval);
        m_told.clear();
        m_helper->install();
        QCOMPARE(m_service->calls, QStringList());
        QCOMPARE(m_helper->lastError(), approveText);
        QCOMPARE(m_told, QStringList{u"approval"_s});
    }

    void installingAHelperThatIsUsableAtOnceShowsTheRestartAlertOnce()
    {
        start(HelperStatus::notRegistered);
        m_told.clear();
        m_helper->setLastError(u"something old"_s);
        m_helper->install();
        QVERIFY(m_helper->isChanging());
        m_service->setStatus(HelperStatus::enabled);
        QCOMPARE(m_told, QStringList());
        QVERIFY(m_helper->isInstalled());
        m_service->finish();
        QVERIFY(!m_helper->isChanging());
        QCOMPARE(m_told, (QStringList{u"evaluate"_s, u"restart"_s}));
        QCOMPARE(m_helper->lastError(), QString());
        m_helper->refreshStatus();
        QCOMPARE(m_told.size(), 2);
    }

    void installingAHelperThatNeedsApprovalSaysSo()
    {
        start(HelperStatus::notRegistered);
        m_told.clear();
        m_helper->install();
        m_service->setStatus(HelperStatus::requiresApproval);
        m_service->finish();
        QCOMPARE(m_helper->lastError(), approveText);
        QVERIFY(m_helper->needsApproval());
        QVERIFY(m_told.contains(u"approval"_s));
        QVERIFY(!m_told.contains(u"restart"_s));
        m_service->setStatus(HelperStatus::enabled);
        QCOMPARE(m_told.count(u"restart"_s), 1);
    }

    void installingWhatWasUsableShowsNoRestartAlert()
    {
        start(HelperStatus::enabled);
        m_helper->install();
        m_service->finish();
        QVERIFY(!m_told.contains(u"restart"_s));
        QCOMPARE(m_helper->lastError(), QString());
    }

    void aFailedInstallationSaysWhy()
    {
        start(HelperStatus::notRegistered);
        m_helper->install();
        m_service->finish(u"The password was wrong."_s);
        QCOMPARE(m_helper->lastError(), u"The password was wrong."_s);
        QVERIFY(!m_helper->isChanging());
        QVERIFY(!m_told.contains(u"restart"_s));
    }

    void installingIsNotStartedTwice()
    {
        start(HelperStatus::notRegistered);
        m_helper->install();
        m_helper->install();
        m_helper->reinstall();
        QCOMPARE(m_service->calls, QStringList{u"register"_s});
    }

    void reinstallingIsNoNewHelper()
    {
        start(HelperStatus::enabled);
        m_helper->reinstall();
        m_service->setStatus(HelperStatus::notRegistered);
        m_helper->refreshStatus();
        m_service->finish();
        m_clock.advance(1s);
        m_service->setStatus(HelperStatus::enabled);
        m_service->finish();
        QCOMPARE(m_helper->lastError(), u"Background helper reinstalled."_s);
        QVERIFY(!m_told.contains(u"restart"_s));
        QVERIFY(m_helper->isInstalled());
        QCOMPARE(m_store.writes, QStringList{buildKey});
    }

    void reinstallingThatFailsSaysWhy()
    {
        start(HelperStatus::enabled);
        m_helper->reinstall();
        m_service->finish();
        m_clock.advance(1s);
        m_service->current = HelperStatus::notRegistered;
        m_service->finish(u"refused"_s);
        QCOMPARE(m_helper->lastError(), u"refused"_s);
        QVERIFY(!m_helper->isInstalled());
        QCOMPARE(m_store.writes, QStringList{buildKey});
    }

    void reinstallingWhatThenNeedsApprovalSaysSo()
    {
        start(HelperStatus::enabled);
        m_helper->reinstall();
        m_service->finish();
        m_clock.advance(1s);
        m_service->current = HelperStatus::requiresApproval;
        m_service->finish();
        QCOMPARE(m_helper->lastError(), approveAgainText);
        QVERIFY(m_told.contains(u"approval"_s));
    }

    void everyChangeOfWhatIsShownIsAnnounced()
    {
        start(HelperStatus::notRegistered);
        int changes = 0;
        connect(&*m_helper, &BackgroundHelper::changed, this, [&] { ++changes; });
        m_helper->setLastError(u"no"_s);
        QCOMPARE(changes, 1);
        m_helper->setLastError(u"no"_s);
        QCOMPARE(changes, 1);
        m_service->setStatus(HelperStatus::requiresApproval);
        QCOMPARE(changes, 2);
    }

private:
    void start(std::optional<HelperStatus> status = {}, const QString& build = u"7"_s)
    {
        m_service->current = status;
        m_manager.emplace(*m_service, m_clock);
        m_helper.emplace(*m_manager, m_store, build);
        connect(&*m_helper, &BackgroundHelper::evaluationNeeded, this, [this] { m_told.append(u"evaluate"_s); });
        connect(&*m_helper, &BackgroundHelper::restartNeeded, this, [this] { m_told.append(u"restart"_s); });
        connect(&*m_helper, &BackgroundHelper::approvalNeeded, this, [this] { m_told.append(u"approval"_s); });
    }

    FakeClock m_clock;
    FakeSettingsStore m_store;
    std::optional<FakeHelperService> m_service;
    std::optional<HelperManager> m_manager;
    std::optional<BackgroundHelper> m_helper;
    QStringList m_told;
};

QTEST_GUILESS_MAIN(BackgroundHelperTest)
#include "BackgroundHelperTest.moc"
