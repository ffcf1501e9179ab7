// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "monitors/PowerMonitor.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeLidSensor.h"
#include "fakes/FakePowerSources.h"
#include "support/TestSupport.h"

#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Percent = std::optional<int>;

PowerSourceDescription battery(std::optional<qint64> current, std::optional<qint64> max)
{
    return {.type = u"InternalBattery"_s, .currentCapacity = current, .maxCapacity = max};
}

PowerSourcesSnapshot onBattery(std::vector<PowerSourceDescription> sources)
{
    return {.providingType = u"Battery Power"_s, .sources = std::move(sources)};
}

} // namespace

class PowerMonitorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void withoutASnapshotItRunsOnPowerWithoutABattery()
    {
        const PowerMonitor monitor{m_sources, m_lid, m_clock};
        QVERIFY(monitor.isOnAC());
        QVERIFY(!monitor.hasBattery());
        QCOMPARE(monitor.batteryPercent(), Percent{});
        QVERIFY(!monitor.lidClosed());
    }

    void losingTheSnapshotFallsBackToPowerWithoutABattery()
    {
        m_sources.current = onBattery({battery(50, 100)});
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        m_sources.current.reset();
        monitor.refresh();
        QVERIFY(monitor.isOnAC());
        QVERIFY(!monitor.hasBattery());
        QCOMPARE(monitor.batteryPercent(), Percent{});
    }

    void constructionReadsTheSourcesOnceAndDoesNotTouchTheLid()
    {
        m_sources.current = onBattery({battery(57, 100)});
        m_lid.closed = true;
        const PowerMonitor monitor{m_sources, m_lid, m_clock};
        QVERIFY(!monitor.isOnAC());
        QVERIFY(monitor.hasBattery());
        QCOMPARE(monitor.batteryPercent(), Percent{57});
        QVERIFY(!monitor.lidClosed());
        QCOMPARE(m_lid.reads, 0);
        QCOMPARE(m_clock.pending(), std::size_t{0});
    }

    void onlyTheProvidingTypeMainsCountsAsMains_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<bool>("onAC");
        QTest::newRow("mains") << "AC Power" << true;
        QTest::newRow("battery") << "Battery Power" << false;
        QTest::newRow("uninterruptible supply") << "UPS Power" << false;
        QTest::newRow("other case") << "ac power" << false;
        QTest::newRow("empty") << "" << false;
    }

    void onlyTheProvidingTypeMainsCountsAsMains()
    {
        QFETCH(const QString, type);
        m_sources.current = PowerSourcesSnapshot{.providingType = type, .sources = {}};
        const PowerMonitor monitor{m_sources, m_lid, m_clock};
        QTEST(monitor.isOnAC(), "onAC");
    }

    void aMachineWithoutABatteryTakesMainsFromTheProvidingType()
    {
        m_sources.current = PowerSourcesSnapshot{.providingType = u"UPS Power"_s, .sources = {}};
        const PowerMonitor monitor{m_sources, m_lid, m_clock};
        QVERIFY(!monitor.isOnAC());
        QVERIFY(!monitor.hasBattery());
        QCOMPARE(monitor.batteryPercent(), Percent{});
    }

    void withoutAProvidingTypeMainsStaysAsItWas()
    {
        m_sources.current = onBattery({});
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        const QSignalSpy mains{&monitor, &PowerMonitor::isOnACChanged};
        m_sources.current->providingType.reset();
        m_sources.current->sources = {battery(1, 2)};
        monitor.refresh();
        QVERIFY(!monitor.isOnAC());
        QCOMPARE(monitor.batteryPercent(), Percent{50});
        QCOMPARE(mains.count(), 0);
    }

    void percentIsRoundedHalvesAwayFromZeroAndNotClamped_data()
    {
        QTest::addColumn<qint64>("current");
        QTest::addColumn<qint64>("max");
        QTest::addColumn<int>("percent");
        QTest::newRow("57 of 100") << qint64{57} << qint64{100} << 57;
        QTest::newRow("99.5 rounds up") << qint64{4975} << qint64{5000} << 100;
        QTest::newRow("nothing left") << qint64{0} << qint64{100} << 0;
        QTest::newRow("just below a half") << qint64{4974} << qint64{5000} << 99;
        QTest::newRow("half of one") << qint64{1} << qint64{200} << 1;
        QTest::newRow("minus a half") << qint64{-1} << qint64{200} << -1;
        QTest::newRow("above the maximum") << qint64{5150} << qint64{5000} << 103;
        QTest::newRow("a maximum of one") << qint64{1} << qint64{1} << 100;
    }

    void percentIsRoundedHalvesAwayFromZeroAndNotClamped()
    {
        QFETCH(const qint64, current);
        QFETCH(const qint64, max);
        QFETCH(const int, percent);
        m_sources.current = onBattery({battery(current, max)});
        const PowerMonitor monitor{m_sources, m_lid, m_clock};
        QVERIFY(monitor.hasBattery());
        QCOMPARE(monitor.batteryPercent(), Percent{percent});
    }

    void aMaximumOfZeroMeansABatteryOfUnknownCharge()
    {
        // Nothing of nothing is no number at all.
        for (const int current : {50, 0}) {
            m_sources.current = onBattery({battery(current, 0)});
            const PowerMonitor monitor{m_sources, m_lid, m_clock};
            QVERIFY(monitor.hasBattery());
            QCOMPARE(monitor.batteryPercent(), Percent{});
        }
    }

    void aMaximumOfZeroKeepsThePercentOfAnEarlierBattery()
    {
        m_sources.current = onBattery({battery(40, 100), battery(50, 0), battery({}, 100), battery(50, {})});
        const PowerMonitor monitor{m_sources, m_lid, m_clock};
        QCOMPARE(monitor.batteryPercent(), Percent{40});
    }

    void percentDoesNotSurviveIntoTheNextPass()
    {
        m_sources.current = onBattery({battery(40, 100)});
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        m_sources.current = onBattery({battery(40, 0)});
        monitor.refresh();
        QVERIFY(monitor.hasBattery());
        QCOMPARE(monitor.batteryPercent(), Percent{});
    }

    void theLastInternalBatteryWins()
    {
        m_sources.current = onBattery({battery(40, 100), battery(90, 100)});
        const PowerMonitor monitor{m_sources, m_lid, m_clock};
        QCOMPARE(monitor.batteryPercent(), Percent{90});
    }

    void onlyInternalBatteriesCount()
    {
        m_sources.current = onBattery({{.type = u"UPS"_s, .currentCapacity = 10, .maxCapacity = 100},
            {.type = {}, .currentCapacity = 10, .maxCapacity = 100},
            {}});
        const PowerMonitor monitor{m_sources, m_lid, m_clock};
        QVERIFY(!monitor.hasBattery());
        QCOMPARE(monitor.batteryPercent(), Percent{});
    }

    void anImpossibleChargeIsUnknown()
    {
        m_sources.current = onBattery({battery(std::numeric_limits<qint64>::max(), 1)});
        const PowerMonitor monitor{m_sources, m_lid, m_clock};
        QVERIFY(monitor.hasBattery());
        QCOMPARE(monitor.batteryPercent(), Percent{});
    }

    void aNotificationWithUnchangedValuesIsReportedToo()
    {
        m_sources.current = onBattery({battery(57, 100)});
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        int changes = 0;
        monitor.onChange = [&] { ++changes; };
        m_sources.announce();
        m_sources.announce();
        QCOMPARE(changes, 2);
    }

    void aNotificationIsReadBeforeItIsReported()
    {
        m_sources.current = onBattery({battery(57, 100)});
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        bool onAC = false;
        monitor.onChange = [&] { onAC = monitor.isOnAC(); };
        m_sources.current->providingType = u"AC Power"_s;
        m_sources.announce();
        QVERIFY(onAC);
    }

    void aNotificationAfterTheEndDoesNothing()
    {
        int changes = 0;
        {
            PowerMonitor monitor{m_sources, m_lid, m_clock};
            monitor.onChange = [&] { ++changes; };
            monitor.setLidPolling(true);
        }
        m_sources.announce();
        m_lid.closed = true;
        m_lid.announce();
        m_clock.advance(1h);
        QCOMPARE(changes, 0);
        QCOMPARE(m_clock.pending(), std::size_t{0});
    }

    void refreshDoesNotReport()
    {
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        bool reported = false;
        monitor.onChange = [&] { reported = true; };
        m_sources.current = onBattery({battery(57, 100)});
        monitor.refresh();
        QVERIFY(!reported);
    }

    void everyWriteIsPublishedInOrderAfterAllFieldsAreSet()
    {
        m_sources.current = onBattery({battery(57, 100)});
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        QStringList published;
        record(monitor, published);

        monitor.refresh();
        QCOMPARE(published, (QStringList{u"isOnAC 57"_s, u"hasBattery 57"_s, u"batteryPercent 57"_s}));

        published.clear();
        m_sources.current->sources = {battery(12, 100)};
        monitor.refresh();
        QCOMPARE(published, (QStringList{u"isOnAC 12"_s, u"hasBattery 12"_s, u"batteryPercent 12"_s}));
    }

    void theFallbackIsPublishedPercentFirst()
    {
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        QStringList published;
        record(monitor, published);
        monitor.refresh();
        QCOMPARE(published, (QStringList{u"isOnAC -"_s, u"batteryPercent -"_s, u"hasBattery -"_s}));
    }

    void anUnknownPercentIsNotAnEmptyBattery()
    {
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        QCOMPARE(monitor.batteryPercent(), std::nullopt);
        m_sources.current = onBattery({battery(0, 100)});
        monitor.refresh();
        QCOMPARE(monitor.batteryPercent(), 0);
    }

    void pollingReadsTheLidAtOnceAndEveryFiveSeconds()
    {
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        int changes = 0;
        monitor.onChange = [&] { ++changes; };
        m_lid.closed = true;
        monitor.setLidPolling(true);
        QVERIFY(monitor.lidClosed());
        QCOMPARE(changes, 1);
        QCOMPARE(m_lid.reads, 1);

        m_lid.closed = false;
        m_clock.advance(4.9s);
        QVERIFY(monitor.lidClosed());
        m_clock.advance(0.1s);
        QVERIFY(!monitor.lidClosed());
        QCOMPARE(changes, 2);

        m_clock.advance(10s);
        QCOMPARE(m_lid.reads, 4);
        QCOMPARE(changes, 2);
    }

    void switchingPollingOnOrOffTwiceDoesNothing()
    {
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        const QSignalSpy lid{&monitor, &PowerMonitor::lidClosedChanged};
        monitor.setLidPolling(false);
        QCOMPARE(lid.count(), 0);

        monitor.setLidPolling(true);
        monitor.setLidPolling(true);
        QCOMPARE(m_lid.reads, 1);
        QCOMPARE(m_clock.pending(), std::size_t{1});

        monitor.setLidPolling(false);
        monitor.setLidPolling(false);
        QCOMPARE(lid.count(), 1);
        QCOMPARE(m_clock.pending(), std::size_t{0});
    }

    void switchingPollingOffWhileTheLidIsClosedOpensItWithoutReporting()
    {
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        m_lid.closed = true;
        monitor.setLidPolling(true);
        int changes = 0;
        monitor.onChange = [&] { ++changes; };
        const QSignalSpy lid{&monitor, &PowerMonitor::lidClosedChanged};
        monitor.setLidPolling(false);
        QVERIFY(!monitor.lidClosed());
        QCOMPARE(lid.count(), 1);
        QCOMPARE(changes, 0);
    }

    void aLidThatCannotBeReadCountsAsOpen()
    {
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        m_lid.closed = true;
        monitor.readLid();
        QVERIFY(monitor.lidClosed());
        m_lid.closed.reset();
        monitor.readLid();
        QVERIFY(!monitor.lidClosed());
    }

    void aLidThatDidNotMoveIsNotPublished()
    {
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        const QSignalSpy lid{&monitor, &PowerMonitor::lidClosedChanged};
        bool reported = false;
        monitor.onChange = [&] { reported = true; };
        m_lid.closed = false;
        monitor.readLid();
        QCOMPARE(lid.count(), 0);
        QVERIFY(!reported);
    }

    void anAnnouncedLidChangeCountsOnlyWhilePolling()
    {
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        m_lid.closed = true;
        m_lid.announce();
        QVERIFY(!monitor.lidClosed());

        m_lid.closed = false;
        monitor.setLidPolling(true);
        m_lid.closed = true;
        m_lid.announce();
        QVERIFY(monitor.lidClosed());
    }

    void whoeverHearsOfTheFirstReadingMaySwitchPollingAgain()
    {
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        m_lid.closed = true;
        monitor.onChange = [&] { monitor.setLidPolling(true); };
        monitor.setLidPolling(true);
        QCOMPARE(m_clock.pending(), std::size_t{1});

        monitor.onChange = nullptr;
        monitor.setLidPolling(false);
        monitor.onChange = [&] { monitor.setLidPolling(false); };
        monitor.setLidPolling(true);
        QCOMPARE(m_clock.pending(), std::size_t{0});
        QVERIFY(!monitor.lidClosed());
    }

    void whetherThereIsALidIsToldWhenItIsKnown()
    {
        PowerMonitor monitor{m_sources, m_lid, m_clock};
        QCOMPARE(monitor.hasLid(), std::optional<bool>{});
        const QSignalSpy changes{&monitor, &PowerMonitor::hasLidChanged};
        int reports = 0;
        monitor.onChange = [&] { ++reports; };
        m_lid.setPresent(false);
        QCOMPARE(monitor.hasLid(), std::optional{false});
        QCOMPARE(changes.size(), 1);
        QCOMPARE(reports, 1);
    }

    void cleanup()
    {
        m_lid.present.reset();
        m_sources.current.reset();
        m_lid.closed.reset();
        m_lid.reads = 0;
    }

private:
    /// Notes each signal with the percent that a listener sees at that moment.
    void record(PowerMonitor& monitor, QStringList& published)
    {
        const auto note = [&](const QString& field) {
            const auto percent = monitor.batteryPercent();
            published << field + u' ' + (percent ? QString::number(*percent) : u"-"_s);
        };
        connect(&monitor, &PowerMonitor::isOnACChanged, this, [note] { note(u"isOnAC"_s); });
        connect(&monitor, &PowerMonitor::batteryPercentChanged, this, [note] { note(u"batteryPercent"_s); });
        connect(&monitor, &PowerMonitor::hasBatteryChanged, this, [note] { note(u"hasBattery"_s); });
    }

    FakePowerSources m_sources;
    FakeLidSensor m_lid;
    FakeClock m_clock;
};

QTEST_GUILESS_MAIN(PowerMonitorTest)
#include "PowerMonitorTest.moc"
