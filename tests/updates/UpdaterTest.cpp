// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "updates/Updater.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeSettingsStore.h"
#include "fakes/FakeUpdateDriver.h"
#include "support/TestSupport.h"

#include <QSignalSpy>

#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;

using Task = UpdateDriver::Task;
using Initiator = UpdateDriver::Initiator;
using Started = std::vector<std::pair<Task, Initiator>>;

namespace {

constexpr Seconds minute{60};
constexpr Seconds hour{3600};
constexpr Seconds day{24 * 3600};

} // namespace

class UpdaterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_updater.reset();
        m_clock.emplace();
        m_store.values.clear();
        m_store.writes.clear();
        m_driver.emplace();
    }

    void aFreshUpdaterIsOffAndAsksNothing()
    {
        start();
        QCOMPARE(m_updater->canCheckForUpdates(), false);
        QCOMPARE(m_updater->automaticallyChecksForUpdates(), false);
        QCOMPARE(m_updater->automaticallyDownloadsUpdates(), false);
        QVERIFY(!m_updater->lastUpdateCheckDate());
        QCOMPARE(m_clock->pending(), std::size_t{0});
        m_clock->advance(30 * day);
        QCOMPARE(m_driver->preparations, 0);
        QVERIFY(m_store.writes.isEmpty());
    }

    void canCheckIsTakenFromTheDriverAtOnce()
    {
        m_driver->current = UpdateDriver::Channel::available;
        start();
        QVERIFY(m_updater->canCheckForUpdates());
        QCOMPARE(m_driver->preparations, 0);
        QVERIFY(m_driver->started.empty());
    }

    void canCheckFollowsTheDriver()
    {
        start();
        QSignalSpy changed(&*m_updater, &Updater::canCheckForUpdatesChanged);
        m_updater->prepare();
        QCOMPARE(m_driver->preparations, 1);
        QCOMPARE(changed.size(), 0);
        m_driver->becomeAvailable();
        QCOMPARE(m_updater->canCheckForUpdates(), true);
        QCOMPARE(changed.size(), 1);
    }

    void howUpdatesComeIsTakenFromTheDriver()
    {
        start();
        QCOMPARE(m_updater->updateChannel(), u"unknown"_s);
        QSignalSpy changed(&*m_updater, &Updater::updateChannelChanged);
        using Channel = UpdateDriver::Channel;
        const QList<std::pair<Channel, QString>> all{{Channel::system, u"system"_s},
            {Channel::source, u"source"_s},
            {Channel::manual, u"manual"_s},
            {Channel::available, u"available"_s}};
        for (const auto& [channel, name] : all) {
            m_driver->become(channel);
            QCOMPARE(m_updater->updateChannel(), name);
            QCOMPARE(m_updater->canCheckForUpdates(), channel == Channel::available);
        }
        QCOMPARE(changed.size(), all.size());
    }

    void whatSomebodyElseStoresIsTakenOver()
    {
        start();
        QSignalSpy checks(&*m_updater, &Updater::automaticallyChecksForUpdatesChanged);
        QSignalSpy downloads(&*m_updater, &Updater::automaticallyDownloadsUpdatesChanged);
        m_store.replace({{u"automaticallyChecksForUpdates"_s, true}, {u"automaticallyDownloadsUpdates"_s, true}});
        QVERIFY(m_updater->automaticallyChecksForUpdates() && m_updater->automaticallyDownloadsUpdates());
        QCOMPARE(m_clock->pending(), std::size_t{1});
        m_store.replace(m_store.values);
        QCOMPARE(checks.size(), 1);
        QCOMPARE(downloads.size(), 1);
        m_store.replace({});
        QVERIFY(!m_updater->automaticallyChecksForUpdates() && !m_updater->automaticallyDownloadsUpdates());
        QCOMPARE(m_clock->pending(), std::size_t{0});
        QVERIFY(m_store.writes.isEmpty());
    }

    void aCheckByHandIsDoneOnceAtATimeAndDated()
    {
        start();
        m_driver->becomeAvailable();
        QSignalSpy dated(&*m_updater, &Updater::lastUpdateCheckDateChanged);
        m_updater->checkForUpdates();
        QCOMPARE(m_updater->canCheckForUpdates(), false);
        m_updater->checkForUpdates();
        QVERIFY(m_driver->started == (Started{{Task::check, Initiator::user}}));
        m_clock->advance(minute);
        m_driver->finish(true);
        QCOMPARE(m_updater->canCheckForUpdates(), true);
        QCOMPARE(dated.size(), 1);
        QVERIFY(m_updater->lastUpdateCheckDate() == m_clock->now());
        QCOMPARE(m_store.integer(u"lastUpdateCheckDate"_s), 1'700'000'060);
        QCOMPARE(m_clock->pending(), std::size_t{0});
    }

    void aCheckThatFailsIsNotDated()
    {
        start();
        m_driver->becomeAvailable();
        m_updater->checkForUpdates();
        m_driver->finish(false);
        QVERIFY(!m_updater->lastUpdateCheckDate());
        QVERIFY(m_store.writes.isEmpty());
        QCOMPARE(m_updater->canCheckForUpdates(), true);
    }

    void withoutUpdatesACheckByHandDoesNothing()
    {
        start();
        m_updater->checkForUpdates();
        QVERIFY(m_driver->started.empty());
    }

    void bothSwitchesAndTheDateSurviveARestart()
    {
        start();
        m_updater->setAutomaticallyChecksForUpdates(true);
        m_updater->setAutomaticallyDownloadsUpdates(true);
        m_driver->becomeAvailable();
        m_updater->checkForUpdates();
        m_driver->finish(true);
        m_updater.reset();
        start();
        QCOMPARE(m_updater->automaticallyChecksForUpdates(), true);
        QCOMPARE(m_updater->automaticallyDownloadsUpdates(), true);
        QVERIFY(m_updater->lastUpdateCheckDate() == m_clock->now());
    }

    void aStoredValueOfAnotherTypeIsAbsent()
    {
        m_store.values[u"automaticallyChecksForUpdates"_s] = u"true"_s;
        m_store.values[u"lastUpdateCheckDate"_s] = u"today"_s;
        start();
        QCOMPARE(m_updater->automaticallyChecksForUpdates(), false);
        QVERIFY(!m_updater->lastUpdateCheckDate());
    }

    void theDailyCheckIsDoneOnceADay()
    {
        m_driver->current = UpdateDriver::Channel::available;
        m_store.values[u"automaticallyChecksForUpdates"_s] = true;
        start();
        m_clock->advance(4 * minute);
        QVERIFY(m_driver->started.empty());
        m_clock->advance(minute);
        QVERIFY(m_driver->started == (Started{{Task::check, Initiator::timer}}));
        m_driver->finish(true);
        QCOMPARE(m_clock->pending(), std::size_t{1});
        m_clock->advance(day - minute);
        QCOMPARE(m_driver->started.size(), std::size_t{1});
        m_clock->advance(minute);
        QCOMPARE(m_driver->started.size(), std::size_t{2});
    }

    void aRestartDoesNotBringTheDailyCheckForward()
    {
        m_driver->current = UpdateDriver::Channel::available;
        m_store.values[u"automaticallyChecksForUpdates"_s] = true;
        m_store.values[u"lastUpdateCheckDate"_s] = qint64{1'700'000'000 - 3600};
        start();
        m_clock->advance(23 * hour - minute);
        QVERIFY(m_driver->started.empty());
        m_clock->advance(minute);
        QCOMPARE(m_driver->started.size(), std::size_t{1});
    }

    void aDateInTheFutureDelaysNothingForLongerThanADay()
    {
        m_driver->current = UpdateDriver::Channel::available;
        m_store.values[u"automaticallyChecksForUpdates"_s] = true;
        m_store.values[u"lastUpdateCheckDate"_s] = qint64{4'000'000'000};
        start();
        m_clock->advance(day);
        QCOMPARE(m_driver->started.size(), std::size_t{1});
    }

    void afterAFailureTheNextDailyCheckIsADayLater()
    {
        m_driver->current = UpdateDriver::Channel::available;
        m_store.values[u"automaticallyChecksForUpdates"_s] = true;
        start();
        m_clock->advance(5 * minute);
        m_driver->finish(false);
        m_clock->advance(day - minute);
        QCOMPARE(m_driver->started.size(), std::size_t{1});
        m_clock->advance(minute);
        QCOMPARE(m_driver->started.size(), std::size_t{2});
    }

    void theDailyCheckWaitsUntilItIsKnownWhetherThereAreUpdates()
    {
        m_store.values[u"automaticallyChecksForUpdates"_s] = true;
        start();
        m_clock->advance(5 * minute);
        QCOMPARE(m_driver->preparations, 1);
        QVERIFY(m_driver->started.empty());
        // Nothing is tried again and again where there are none.
        QCOMPARE(m_clock->pending(), std::size_t{0});
        m_driver->becomeAvailable();
        QVERIFY(m_driver->started == (Started{{Task::check, Initiator::timer}}));
    }

    void switchedOffInTheMeantimeNothingIsChecked()
    {
        m_store.values[u"automaticallyChecksForUpdates"_s] = true;
        start();
        m_clock->advance(5 * minute);
        m_updater->setAutomaticallyChecksForUpdates(false);
        m_driver->becomeAvailable();
        QVERIFY(m_driver->started.empty());
        m_updater->setAutomaticallyChecksForUpdates(true);
        m_updater->setAutomaticallyChecksForUpdates(false);
        QCOMPARE(m_clock->pending(), std::size_t{0});
    }

    void switchedOnDuringACheckTheNextOneIsADayLater()
    {
        m_driver->current = UpdateDriver::Channel::available;
        start();
        m_driver->becomeAvailable();
        m_updater->checkForUpdates();
        m_updater->setAutomaticallyChecksForUpdates(true);
        m_clock->advance(5 * minute);
        QCOMPARE(m_driver->started.size(), std::size_t{1});
        m_driver->finish(true);
        m_clock->advance(day - minute);
        QCOMPARE(m_driver->started.size(), std::size_t{1});
        m_clock->advance(minute);
        QCOMPARE(m_driver->started.size(), std::size_t{2});
    }

    void whatIsFoundIsInstalledIfWanted()
    {
        start();
        m_driver->becomeAvailable();
        m_updater->setAutomaticallyDownloadsUpdates(true);
        m_updater->checkForUpdates();
        QVERIFY(m_driver->started == (Started{{Task::checkAndInstall, Initiator::user}}));
    }

private:
    void start() { m_updater.emplace(*m_driver, m_store, *m_clock); }

    std::optional<FakeClock> m_clock;
    FakeSettingsStore m_store;
    std::optional<FakeUpdateDriver> m_driver;
    std::optional<Updater> m_updater;
};

QTEST_GUILESS_MAIN(UpdaterTest)
#include "UpdaterTest.moc"
