// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/thermal/MachineThermalState.h"

#include "fakes/FakeClock.h"
#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QDBusConnection>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class MachineThermalStateTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_tree = std::make_unique<FileTree>();
        m_clock = std::make_unique<FakeClock>();
        m_changes = 0;
    }

    void aMachineWithoutZonesIsNominalAndNeverLookedAt()
    {
        const MachineThermalState state{*m_clock, m_noBus, m_tree->root()};
        QCOMPARE(state.level(), ThermalLevel::nominal);
        QCOMPARE(m_clock->pending(), std::size_t{0});
    }

    void aZoneWithoutUsableTripsIsNeverLookedAt()
    {
        zone(u"0"_s, "99000");
        trip(u"0"_s, 0, "passive", "0");
        trip(u"0"_s, 1, "critical", "-274000");
        trip(u"0"_s, 2, "hot", "200000");
        const MachineThermalState state{*m_clock, m_noBus, m_tree->root()};
        QCOMPARE(state.level(), ThermalLevel::nominal);
        QCOMPARE(m_clock->pending(), std::size_t{0});
    }

    void theThermalStateAtTheStartIsKnownAtOnce()
    {
        zone(u"0"_s, "101000");
        trip(u"0"_s, 0, "hot", "100000");
        const MachineThermalState state{*m_clock, m_noBus, m_tree->root()};
        QCOMPARE(state.level(), ThermalLevel::critical);
    }

    void aLookEveryTenSecondsReportsOnlyChanges()
    {
        laptop("60000");
        const auto state = make();
        m_clock->advance(1min);
        QCOMPARE(m_changes, 0);

        setTemperature("91000");
        m_clock->advance(39s);
        QCOMPARE(state->level(), ThermalLevel::nominal);
        m_clock->advance(1s);
        QCOMPARE(state->level(), ThermalLevel::serious);
        QCOMPARE(m_changes, 1);

        setTemperature("60000");
        m_clock->advance(60s);
        QCOMPARE(state->level(), ThermalLevel::serious);
        m_clock->advance(10s);
        QCOMPARE(state->level(), ThermalLevel::nominal);
        QCOMPARE(m_changes, 2);
    }

    void anEventIsReportedWhetherOrNotTheLevelChanged()
    {
        laptop("60000");
        const auto state = make();
        state->handleEvent();
        QCOMPARE(m_changes, 1);
    }

    void aBurstOfEventsIsReportedOnceASecond()
    {
        laptop("60000");
        const auto state = make();
        for (int event = 0; event < 100; ++event)
            state->handleEvent();
        QCOMPARE(m_changes, 1);
        m_clock->advance(1s);
        QCOMPARE(m_changes, 2);
        m_clock->advance(5s);
        QCOMPARE(m_changes, 2);
        state->handleEvent();
        QCOMPARE(m_changes, 3);
    }

    void theLastEventOfABurstIsNotLost()
    {
        laptop("60000");
        const auto state = make();
        state->handleEvent();
        setTemperature("101000");
        state->handleEvent();
        QCOMPARE(state->level(), ThermalLevel::nominal);
        m_clock->advance(1s);
        QCOMPARE(state->level(), ThermalLevel::critical);
    }

    void fansNeverRaiseTheLevel()
    {
        zone(u"0"_s, "95000");
        trip(u"0"_s, 0, "active", "50000");
        trip(u"0"_s, 1, "critical", "128000");
        m_tree->write(u"class/thermal/thermal_zone0/cdev0_trip_point"_s, "0\n");
        m_tree->write(u"class/thermal/thermal_zone0/cdev0/cur_state"_s, "1\n");
        const auto state = make();
        m_clock->advance(10min);
        QCOMPARE(state->level(), ThermalLevel::nominal);
    }

    void aPassiveDeviceAtWorkIsSeriousAtOnce()
    {
        laptop("91000");
        m_tree->write(u"class/thermal/thermal_zone0/cdev0_trip_point"_s, "1\n");
        m_tree->write(u"class/thermal/thermal_zone0/cdev0/cur_state"_s, "2\n");
        QCOMPARE(make()->level(), ThermalLevel::nominal);

        m_tree->write(u"class/thermal/thermal_zone0/cdev1_trip_point"_s, "0\n");
        m_tree->write(u"class/thermal/thermal_zone0/cdev1/cur_state"_s, "1\n");
        QCOMPARE(make()->level(), ThermalLevel::serious);
    }

    void aDisabledZoneIsIgnored()
    {
        laptop("101000");
        m_tree->write(u"class/thermal/thermal_zone0/mode"_s, "disabled\n");
        QCOMPARE(make()->level(), ThermalLevel::nominal);
        QCOMPARE(m_clock->pending(), std::size_t{0});
    }

    void filesThatCannotBeReadAreIgnored_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("temperature") << "temp";
        QTest::newRow("kind of trip") << "trip_point_1_type";
        QTest::newRow("temperature of a trip") << "trip_point_1_temp";
    }

    void filesThatCannotBeReadAreIgnored()
    {
        QFETCH(const QString, file);
        const QString path = u"class/thermal/thermal_zone0/"_s + file;
        laptop("101000");
        m_tree->breakFile(path);
        QVERIFY(make()->level() < ThermalLevel::critical);
        m_tree->remove(path);
        m_tree->write(path, "garbage\n");
        QVERIFY(make()->level() < ThermalLevel::critical);
        m_tree->write(path, "");
        QVERIFY(make()->level() < ThermalLevel::critical);
        m_tree->remove(path);
        QVERIFY(make()->level() < ThermalLevel::critical);
        m_tree->makeDirectory(path);
        QVERIFY(make()->level() < ThermalLevel::critical);
    }

    void aTemperatureThatFailsForAMomentIsReadAgain()
    {
        laptop("91000");
        const auto state = make();
        m_tree->breakFile(u"class/thermal/thermal_zone0/temp"_s);
        m_clock->advance(10s);
        m_tree->remove(u"class/thermal/thermal_zone0/temp"_s);
        setTemperature("101000");
        m_clock->advance(10s);
        QCOMPARE(state->level(), ThermalLevel::critical);
    }

    void aZoneThatComesIsFoundOnAnEvent()
    {
        const auto state = make();
        QCOMPARE(m_clock->pending(), std::size_t{0});
        laptop("101000");
        state->handleEvent();
        QCOMPARE(state->level(), ThermalLevel::critical);
    }

    void aZoneThatGoesCoolsDownAndIsNoLongerLookedAt()
    {
        laptop("101000");
        const auto state = make();
        QCOMPARE(state->level(), ThermalLevel::critical);
        m_tree->remove(u"class"_s);
        m_clock->advance(80s);
        QCOMPARE(state->level(), ThermalLevel::nominal);
        QCOMPARE(m_clock->pending(), std::size_t{0});
    }

    void throttledProcessorsAreSerious()
    {
        throttle(u"cpu0"_s, "0", "1000");
        throttle(u"cpu1"_s, "0", "1000");
        const auto state = make();
        throttle(u"cpu0"_s, "0", "14000");
        m_clock->advance(10s);
        QCOMPARE(state->level(), ThermalLevel::serious);
    }

    void everyProcessorPackageCounts()
    {
        throttle(u"cpu0"_s, "0", "1000");
        throttle(u"cpu1"_s, "1", "1000");
        const auto state = make();
        throttle(u"cpu1"_s, "1", "1001");
        m_clock->advance(10s);
        QCOMPARE(state->level(), ThermalLevel::fair);
    }

    void aThrottleCounterOfGarbageIsIgnored()
    {
        throttle(u"cpu0"_s, "0", "garbage");
        QCOMPARE(make()->level(), ThermalLevel::nominal);
        QCOMPARE(m_clock->pending(), std::size_t{0});
    }

private:
    std::unique_ptr<MachineThermalState> make()
    {
        auto state = std::make_unique<MachineThermalState>(*m_clock, m_noBus, m_tree->root());
        m_listening = state->changed.subscribe([this] { ++m_changes; });
        return state;
    }

    /// Passive at 90 °C, critical at 128 °C, hot at 100 °C.
    void laptop(const QByteArray& temperature)
    {
        zone(u"0"_s, temperature);
        trip(u"0"_s, 0, "passive", "90000");
        trip(u"0"_s, 1, "hot", "100000");
        trip(u"0"_s, 2, "critical", "128000");
        trip(u"0"_s, 10, "passive", "95000");
    }

    void zone(const QString& number, const QByteArray& temperature)
    {
        const QString directory = u"class/thermal/thermal_zone"_s + number;
        m_tree->write(directory + u"/mode"_s, "enabled\n");
        m_tree->write(directory + u"/temp"_s, temperature + '\n');
    }

    void setTemperature(const QByteArray& temperature) { zone(u"0"_s, temperature); }

    void trip(const QString& zoneNumber, int number, const QByteArray& type, const QByteArray& temperature)
    {
        const QString prefix = u"class/thermal/thermal_zone%1/trip_point_%2_"_s.arg(zoneNumber).arg(number);
        m_tree->write(prefix + u"type"_s, type + '\n');
        m_tree->write(prefix + u"temp"_s, temperature + '\n');
        m_tree->write(prefix + u"hyst"_s, "2000\n");
    }

    void throttle(const QString& processor, const QByteArray& package, const QByteArray& total)
    {
        const QString directory = u"devices/system/cpu/"_s + processor;
        m_tree->write(directory + u"/topology/physical_package_id"_s, package + '\n');
        m_tree->write(directory + u"/thermal_throttle/package_throttle_total_time_ms"_s, total + '\n');
    }

    const QDBusConnection m_noBus{u"none"_s};
    std::unique_ptr<FileTree> m_tree;
    std::unique_ptr<FakeClock> m_clock;
    int m_changes = 0;
    Subscription m_listening;
};

QTEST_GUILESS_MAIN(MachineThermalStateTest)
#include "MachineThermalStateTest.moc"
