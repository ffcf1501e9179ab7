// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/thermal/ThermalClassifier.h"

#include "fakes/FakeClock.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Passive at 90 °C, hot at 100 °C, critical at 110 °C.
ThermalZoneReading laptop(std::optional<double> temperature)
{
    return {.zone = u"thermal_zone0"_s,
        .temperature = temperature,
        .passive = ThermalTrip{90, 0},
        .hot = ThermalTrip{100, 0},
        .critical = ThermalTrip{110, 0},
        .isCooling = false};
}

ThermalZoneReading criticalOnly(std::optional<double> temperature)
{
    auto zone = laptop(temperature);
    zone.passive.reset();
    zone.hot.reset();
    return zone;
}

} // namespace

class ThermalClassifierTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_classifier = {};
    }

    void aCoolMachineIsNominal() { QCOMPARE(after(10min, laptop(50)), ThermalLevel::nominal); }

    void nothingToReadIsNominal() { QCOMPARE(m_classifier.classify({}, m_clock.now()), ThermalLevel::nominal); }

    void theHotTripIsCriticalAtOnce() { QCOMPARE(once(laptop(100)), ThermalLevel::critical); }

    void fiveDegreesBelowTheCriticalTripIsCriticalAtOnce()
    {
        QCOMPARE(once(criticalOnly(104.9)), ThermalLevel::nominal);
        QCOMPARE(once(criticalOnly(105)), ThermalLevel::critical);
    }

    void theLowerOfHotAndNearlyCriticalCounts()
    {
        auto zone = laptop(106);
        zone.hot = ThermalTrip{108, 0};
        QCOMPARE(once(zone), ThermalLevel::critical);
    }

    void thePassiveTripIsSeriousWhenItIsHeldForHalfAMinute()
    {
        QCOMPARE(once(laptop(90)), ThermalLevel::nominal);
        QCOMPARE(after(20s, laptop(90)), ThermalLevel::nominal);
        QCOMPARE(after(10s, laptop(90)), ThermalLevel::serious);
    }

    void thePassiveTripIsSeriousAtOnceWhenTheKernelCools()
    {
        auto zone = laptop(90);
        zone.isCooling = true;
        QCOMPARE(once(zone), ThermalLevel::serious);
    }

    void coolingBelowThePassiveTripMeansNothing()
    {
        auto zone = laptop(84);
        zone.isCooling = true;
        QCOMPARE(once(zone), ThermalLevel::nominal);
        QCOMPARE(after(1min, zone), ThermalLevel::nominal);
    }

    void aShortBurstIsNotSerious()
    {
        for (int burst = 0; burst < 20; ++burst) {
            QCOMPARE(after(30s, laptop(95)), ThermalLevel::nominal);
            QCOMPARE(after(10s, laptop(60)), ThermalLevel::nominal);
        }
    }

    void fiveDegreesBelowThePassiveTripIsFairWhenHeld()
    {
        once(laptop(85));
        QCOMPARE(after(20s, laptop(85)), ThermalLevel::nominal);
        QCOMPARE(after(10s, laptop(85)), ThermalLevel::fair);
        QCOMPARE(after(10min, laptop(89)), ThermalLevel::fair);
    }

    void withoutAPassiveTripTheCriticalOneIsTheMeasure()
    {
        once(criticalOnly(90));
        QCOMPARE(after(30s, criticalOnly(90)), ThermalLevel::fair);
        QCOMPARE(after(20s, criticalOnly(100)), ThermalLevel::fair);
        QCOMPARE(after(20s, criticalOnly(100)), ThermalLevel::serious);
    }

    void withoutTripsNothingIsHot()
    {
        auto zone = laptop(120);
        zone.passive.reset();
        zone.hot.reset();
        zone.critical.reset();
        QCOMPARE(after(10min, zone), ThermalLevel::nominal);
    }

    void aLevelIsLeftWhenItHasBeenCoolerForAMinute()
    {
        makeSerious();
        once(laptop(70));
        QCOMPARE(after(50s, laptop(70)), ThermalLevel::serious);
        QCOMPARE(after(10s, laptop(70)), ThermalLevel::nominal);
    }

    void aLevelIsNotLeftLessThanThreeDegreesBelow()
    {
        makeSerious();
        QCOMPARE(after(1h, laptop(87.1)), ThermalLevel::serious);
        QCOMPARE(after(1h, laptop(87)), ThermalLevel::serious);
        once(laptop(86.9));
        QCOMPARE(after(1min, laptop(86.9)), ThermalLevel::fair);
    }

    void aTripsOwnHysteresisCountsWhenItIsLarger()
    {
        makeSerious();
        auto zone = laptop(81);
        zone.passive = ThermalTrip{90, 10};
        QCOMPARE(after(1h, zone), ThermalLevel::serious);
        zone.temperature = 79;
        once(zone);
        QVERIFY(after(1min, zone) < ThermalLevel::serious);
    }

    void aLevelThatIsTouchedAgainIsHeldForAnotherMinute()
    {
        makeSerious();
        for (int round = 0; round < 10; ++round) {
            QCOMPARE(after(50s, laptop(70)), ThermalLevel::serious);
            QCOMPARE(after(10s, laptop(88)), ThermalLevel::serious);
        }
    }

    void temperaturesThatMakeNoSenseAreIgnored_data()
    {
        QTest::addColumn<double>("temperature");
        QTest::newRow("below zero") << -273.2;
        QTest::newRow("zero") << 0.0;
        QTest::newRow("hundred and fifty") << 150.0;
        QTest::newRow("all ones") << 65535.0;
    }

    void temperaturesThatMakeNoSenseAreIgnored()
    {
        QFETCH(const double, temperature);
        QCOMPARE(after(10min, laptop(temperature)), ThermalLevel::nominal);
    }

    void aZoneThatCannotBeReadCoolsDown()
    {
        makeSerious();
        once(laptop({}));
        QCOMPARE(after(50s, laptop({})), ThermalLevel::serious);
        QCOMPARE(after(10s, laptop({})), ThermalLevel::nominal);
    }

    void aZoneThatGoesAwayCoolsDown()
    {
        makeSerious();
        QCOMPARE(pass(50s, {}), ThermalLevel::serious);
        QCOMPARE(pass(20s, {}), ThermalLevel::nominal);
    }

    void theHottestZoneCounts()
    {
        auto other = laptop(100);
        other.zone = u"thermal_zone1"_s;
        QCOMPARE(pass(10s, {.zones = {laptop(40), other}, .packages = {}}), ThermalLevel::critical);
    }

    void timeThatNobodyMeasuredDoesNotCountAsHeld()
    {
        once(laptop(95));
        m_clock.advance(8h);
        QCOMPARE(once(laptop(95)), ThermalLevel::nominal);
        QCOMPARE(after(30s, laptop(95)), ThermalLevel::serious);
    }

    void aClockThatIsSetBackStartsTheHoldAnew()
    {
        once(laptop(95));
        m_clock.advance(-1h);
        QCOMPARE(after(20s, laptop(95)), ThermalLevel::nominal);
        QCOMPARE(after(20s, laptop(95)), ThermalLevel::serious);
    }

    void throttlingAtAllIsFair()
    {
        QCOMPARE(throttled(5000), ThermalLevel::nominal);
        QCOMPARE(throttled(5000), ThermalLevel::nominal);
        QCOMPARE(throttled(5001), ThermalLevel::fair);
    }

    void throttlingForAFifthOfAMinuteIsSerious()
    {
        throttled(0);
        QCOMPARE(throttled(4000), ThermalLevel::fair);
        QCOMPARE(throttled(8000), ThermalLevel::fair);
        QCOMPARE(throttled(11999), ThermalLevel::fair);
        QCOMPARE(throttled(12000), ThermalLevel::serious);
    }

    void throttlingThatIsSpreadOutIsNotSerious()
    {
        for (qint64 total = 0; total < 100'000; total += 1900)
            QVERIFY(throttled(total) < ThermalLevel::serious);
    }

    void throttlingThatHasEndedIsForgotten()
    {
        throttled(0);
        QCOMPARE(throttled(20'000), ThermalLevel::serious);
        for (int look = 0; look < 6; ++look)
            QCOMPARE(throttled(20'000), ThermalLevel::serious);
        for (int look = 0; look < 7; ++look)
            throttled(20'000);
        QCOMPARE(throttled(20'000), ThermalLevel::nominal);
    }

    void aThrottleCounterThatStartsAnewIsNotGrowth()
    {
        throttled(90'000);
        QCOMPARE(throttled(0), ThermalLevel::nominal);
        QCOMPARE(throttled(0), ThermalLevel::nominal);
    }

    void throttlingBeforeALongSleepIsNotThisMinutes()
    {
        throttled(0);
        m_clock.advance(8h);
        QCOMPARE(throttled(60'000), ThermalLevel::nominal);
    }

    void aHintThatLastsAMinuteWarmsACoolMachine()
    {
        look(hinted(laptop(50)));
        QCOMPARE(pass(50s, hinted(laptop(50))), ThermalLevel::nominal);
        QCOMPARE(pass(10s, hinted(laptop(50))), ThermalLevel::fair);
        QCOMPARE(pass(10min, hinted(laptop(50))), ThermalLevel::fair);
        once(laptop(50));
        QCOMPARE(after(50s, laptop(50)), ThermalLevel::fair);
        QCOMPARE(after(10s, laptop(50)), ThermalLevel::nominal);
    }

    void aHintMakesAWarmMachineHot()
    {
        once(laptop(86));
        QCOMPARE(after(1min, laptop(86)), ThermalLevel::fair);
        QCOMPARE(pass(60s, hinted(laptop(86))), ThermalLevel::fair);
        QCOMPARE(pass(10s, hinted(laptop(86))), ThermalLevel::serious);
    }

    void aHintIsNeverCritical()
    {
        makeSerious();
        QCOMPARE(pass(10min, hinted(laptop(90))), ThermalLevel::serious);
        QCOMPARE(look(hinted(laptop(100))), ThermalLevel::critical);
    }

    void aHintDoesNotCountWhileNobodyLooks()
    {
        look(hinted(laptop(50)));
        pass(50s, hinted(laptop(50)));
        m_clock.advance(1h);
        QCOMPARE(look(hinted(laptop(50))), ThermalLevel::nominal);
        QCOMPARE(pass(1min, hinted(laptop(50))), ThermalLevel::fair);
    }

private:
    static ThermalReadings hinted(const ThermalZoneReading& zone)
    {
        return {.zones = {zone}, .packages = {}, .isSaidToBeTooHot = true};
    }

    ThermalLevel look(const ThermalReadings& readings)
    {
        m_last = m_classifier.classify(readings, m_clock.now());
        return m_last;
    }

    ThermalLevel once(const ThermalZoneReading& zone) { return look({.zones = {zone}, .packages = {}}); }

    /// Lets time pass, looking every ten seconds and once more at its end.
    ThermalLevel pass(Seconds interval, const ThermalReadings& readings)
    {
        for (Seconds passed{10}; passed <= interval; passed += Seconds{10}) {
            m_clock.advance(10s);
            look(readings);
        }
        return m_last;
    }

    ThermalLevel after(Seconds interval, const ThermalZoneReading& zone)
    {
        return pass(interval, {.zones = {zone}, .packages = {}});
    }

    /// The total of throttled milliseconds, ten seconds later.
    ThermalLevel throttled(qint64 total) { return pass(10s, {.zones = {}, .packages = {{u"0"_s, total}}}); }

    void makeSerious()
    {
        once(laptop(90));
        QCOMPARE(after(30s, laptop(90)), ThermalLevel::serious);
    }

    FakeClock m_clock;
    ThermalClassifier m_classifier;
    ThermalLevel m_last = ThermalLevel::nominal;
};

QTEST_GUILESS_MAIN(ThermalClassifierTest)
#include "ThermalClassifierTest.moc"
