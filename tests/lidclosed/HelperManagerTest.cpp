// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "lidclosed/HelperManager.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeHelperService.h"
#include "lidclosed/Heartbeat.h"
#include "lidclosed/TarvikHelper.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class HelperManagerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_service = std::make_unique<FakeHelperService>();
        m_service->current = HelperStatus::enabled;
        m_manager = std::make_unique<HelperManager>(*m_service, m_clock);
        m_answers.clear();
        m_losses = 0;
        connect(m_manager.get(), &HelperManager::lost, this, [this] { ++m_losses; });
    }

    void cleanup()
    {
        m_manager.reset();
        QCOMPARE(m_service->living, 0);
        QCOMPARE(m_clock.pending(), std::size_t{0});
    }

    void theLabelIsTheApplicationsIdentifierWithDotHelper()
    {
        QCOMPARE(TarvikHelper::machLabel(u"com.morvanta.Tarvik"_s), u"com.morvanta.Tarvik.helper"_s);
        QCOMPARE(TarvikHelper::machLabel({}), u"com.morvanta.tarvik.helper"_s);
        QCOMPARE(QByteArray(TarvikHelper::machLabelKey), "TARVIK_MACH_LABEL");
        QCOMPARE(QByteArray(TarvikHelper::defaultMachLabel), "com.morvanta.tarvik.helper");
    }

    void theConnectionIsMadeOnFirstUseAndKept()
    {
        QCOMPARE(m_service->connects, 0);
        QVERIFY(m_manager->proxy() != nullptr);
        QCOMPARE(m_manager->proxy(), m_service->connection);
        QCOMPARE(m_service->connects, 1);
    }

    void aReplyIsPassedOn()
    {
        setKeepAwake(true);
        m_service->connection->reply(true);
        setKeepAwake(false);
        m_service->connection->reply(false, u"pmset is broken"_s);
        QCOMPARE(m_service->calls, (QStringList{u"on"_s, u"off"_s}));
        QCOMPARE(m_answers, (QStringList{u"yes"_s, u"no: pmset is broken"_s}));
    }

    void aReplyAfterFivePointNineSecondsWinsOverTheTimeout()
    {
        setKeepAwake(true);
        m_clock.advance(5.9s);
        m_service->connection->reply(true);
        m_clock.advance(1min);
        QCOMPARE(m_answers, QStringList{u"yes"_s});
    }

    void aReplyAfterTheTimeoutIsDropped()
    {
        setKeepAwake(true);
        m_clock.advance(5.9s);
        QCOMPARE(m_answers, QStringList());
        m_clock.advance(0.2s);
        QCOMPARE(m_answers, QStringList{u"no: The background helper isn’t responding."_s});
        m_service->connection->reply(true);
        QCOMPARE(m_answers.size(), 1);
    }

    void anErrorAfterTheReplyIsDropped()
    {
        setKeepAwake(true);
        setKeepAwake(true);
        m_service->connection->reply(true);
        m_service->connection->fail(u"gone"_s);
        QCOMPARE(m_answers, (QStringList{u"yes"_s, u"no: gone"_s}));
    }

    void anErrorOfTheConnectionIsAnAnswer()
    {
        setKeepAwake(true);
        m_service->connection->fail(u"Rejected send message"_s);
        m_clock.advance(1min);
        QCOMPARE(m_answers, QStringList{u"no: Rejected send message"_s});
    }

    void withoutAConnectionTheAnswerStillComesLater()
    {
        m_service->isReachable = false;
        setKeepAwake(true);
        QCOMPARE(m_answers, QStringList());
        m_clock.advance(0s);
        QCOMPARE(m_answers, QStringList{u"no: No helper connection"_s});
        m_clock.advance(1min);
        QCOMPARE(m_answers.size(), 1);
    }

    void aConnectionThatWasMissingIsTriedForAgain()
    {
        m_service->isReachable = false;
        QVERIFY(m_manager->proxy() == nullptr);
        m_service->isReachable = true;
        QVERIFY(m_manager->proxy() != nullptr);
    }

    void anyVersionIsAnAnswer()
    {
        askVersion();
        m_service->connection->reply(true, {});
        askVersion();
        m_service->connection->reply(true, u"0.1-odd"_s);
        QCOMPARE(m_answers, (QStringList{u"yes"_s, u"yes"_s}));
    }

    void aVersionIsWaitedForFiveSeconds()
    {
        askVersion();
        m_clock.advance(4.9s);
        QCOMPARE(m_answers, QStringList());
        m_clock.advance(0.2s);
        QCOMPARE(m_answers, QStringList{u"no: The background helper isn’t responding."_s});
    }

    void aVersionCanFail()
    {
        askVersion();
        m_service->connection->fail(u"gone"_s);
        QCOMPARE(m_answers, QStringList{u"no: gone"_s});
    }

    void callsAtTheSameTimeAreToldApart()
    {
        setKeepAwake(true);
        m_clock.advance(3s);
        setKeepAwake(true);
        m_clock.advance(3.1s);
        QCOMPARE(m_answers, QStringList{u"no: The background helper isn’t responding."_s});
        m_service->connection->reply(true);
        QCOMPARE(m_answers.size(), 1);
        m_service->connection->reply(true);
        QCOMPARE(m_answers.constLast(), u"yes"_s);
    }

    void anInvalidConnectionIsReplacedByTheNextCall()
    {
        setKeepAwake(true);
        m_service->connection->reply(true);
        m_service->connection->invalidate();
        QCOMPARE(m_losses, 1);
        QTRY_COMPARE(m_service->living, 0);
        setKeepAwake(true);
        QCOMPARE(m_service->connects, 2);
    }

    void aCallInFlightMayStillBeAnsweredByAnInvalidConnection()
    {
        setKeepAwake(true);
        FakeHelperConnection* const old = m_service->connection;
        old->invalidate();
        QCoreApplication::processEvents();
        QCOMPARE(m_service->living, 1);
        askVersion();
        QCOMPARE(m_service->living, 2);
        old->fail(u"disconnected"_s);
        QCOMPARE(m_answers, QStringList{u"no: disconnected"_s});
        QTRY_COMPARE(m_service->living, 1);
    }

    void aCallInFlightOverAnInvalidConnectionTimesOutAtTheLatest()
    {
        setKeepAwake(true);
        m_service->connection->invalidate();
        m_clock.advance(6.1s);
        QCOMPARE(m_answers, QStringList{u"no: The background helper isn’t responding."_s});
        QTRY_COMPARE(m_service->living, 0);
    }

    void aConnectionThatIsNoLongerUsedTellsNothing()
    {
        setKeepAwake(true);
        FakeHelperConnection* const old = m_service->connection;
        old->invalidate();
        QVERIFY(m_manager->proxy() != nullptr);
        old->interrupt();
        old->invalidate();
        QCOMPARE(m_losses, 1);
        QCOMPARE(m_service->living, 2);
    }

    void anInterruptedConnectionIsKept()
    {
        m_manager->proxy();
        m_service->connection->interrupt();
        QCOMPARE(m_losses, 1);
        m_manager->proxy();
        QCOMPARE(m_service->connects, 1);
    }

    void whoeverIsAnsweredMayCallAgain()
    {
        m_manager->setKeepAwake(true, [this](bool, const QString&) { setKeepAwake(false); });
        m_service->connection->fail(u"gone"_s);
        m_service->connection->reply(true);
        QCOMPARE(m_answers, QStringList{u"yes"_s});
    }

    void nobodyIsAnsweredAfterTheEnd()
    {
        setKeepAwake(true);
        m_manager->registerService([this](const QString&) { m_answers.append(u"registered"_s); });
        m_manager.reset();
        m_service->finish();
        m_clock.advance(1min);
        QCOMPARE(m_answers, QStringList());
        m_service->setStatus(HelperStatus::enabled);
        QCOMPARE(m_answers, QStringList());
    }

    void theStatusIsReadAtEveryUse()
    {
        m_service->current.reset();
        QCOMPARE(m_manager->status(), std::optional<HelperStatus>());
        m_service->current = HelperStatus::notFound;
        QCOMPARE(m_manager->status(), HelperStatus::notFound);
    }

    void registeringTellsItsError()
    {
        m_manager->registerService([this](const QString& error) { m_answers.append(error); });
        QCOMPARE(m_answers, QStringList());
        m_service->finish(u"no disk space"_s);
        QCOMPARE(m_answers, QStringList{u"no disk space"_s});
    }

    void reinstallingRemovesWaitsAndRegisters()
    {
        reinstall();
        QCOMPARE(m_service->calls, QStringList{u"unregister"_s});
        m_service->finish();
        m_clock.advance(0.4s);
        QCOMPARE(m_service->calls, QStringList{u"unregister"_s});
        m_clock.advance(0.2s);
        QCOMPARE(m_service->calls, (QStringList{u"unregister"_s, u"register"_s}));
        m_service->finish(u"refused"_s);
        QCOMPARE(m_answers, QStringList{u"refused"_s});
    }

    void aFailedRemovalDoesNotKeepFromRegistering()
    {
        reinstall();
        m_service->finish(u"not installed"_s);
        m_clock.advance(0.6s);
        m_service->finish();
        QCOMPARE(m_answers, QStringList{QString()});
    }

    void theHeartBeatsAtOnceAndThenEveryThirtySeconds()
    {
        Heartbeat heartbeat(*m_manager, m_clock);
        heartbeat.start();
        QCOMPARE(beats(), 1);
        m_clock.advance(29.9s);
        QCOMPARE(beats(), 1);
        m_clock.advance(0.2s);
        QCOMPARE(beats(), 2);
        m_clock.advance(5min);
        QCOMPARE(beats(), 12);
        heartbeat.stop();
        m_clock.advance(5min);
        QCOMPARE(beats(), 12);
    }

    void startingTheHeartbeatAnewLeavesOneTimer()
    {
        Heartbeat heartbeat(*m_manager, m_clock);
        heartbeat.start();
        m_clock.advance(20s);
        heartbeat.start();
        QCOMPARE(beats(), 2);
        m_clock.advance(30s);
        QCOMPARE(beats(), 3);
    }

    void withoutAUsableHelperThereIsNoHeartbeat()
    {
        m_service->current = HelperStatus::requiresApproval;
        Heartbeat heartbeat(*m_manager, m_clock);
        heartbeat.start();
        QCOMPARE(beats(), 0);
        QCOMPARE(m_clock.pending(), std::size_t{0});
    }

    void aBeatWithoutAConnectionIsSkipped()
    {
        Heartbeat heartbeat(*m_manager, m_clock);
        heartbeat.start();
        m_service->connection->invalidate();
        m_service->isReachable = false;
        m_clock.advance(30s);
        QCOMPARE(beats(), 1);
        m_service->isReachable = true;
        m_clock.advance(30s);
        QCOMPARE(beats(), 2);
    }

private:
    void setKeepAwake(bool on)
    {
        m_manager->setKeepAwake(on, [this](bool ok, const QString& error) { answer(ok, error); });
    }

    void askVersion()
    {
        m_manager->version([this](bool ok, const QString& error) { answer(ok, error); });
    }

    void reinstall()
    {
        m_manager->reinstall([this](const QString& error) { m_answers.append(error); });
    }

    void answer(bool ok, const QString& error) { m_answers.append(ok ? u"yes"_s + error : u"no: "_s + error); }

    int beats() const { return static_cast<int>(m_service->calls.count(u"heartbeat"_s)); }

    FakeClock m_clock;
    std::unique_ptr<FakeHelperService> m_service;
    std::unique_ptr<HelperManager> m_manager;
    QStringList m_answers;
    int m_losses = 0;
};

QTEST_GUILESS_MAIN(HelperManagerTest)
#include "HelperManagerTest.moc"
