// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/power/SysfsPowerSources.h"

#include "fakes/FakeClock.h"
#include "support/FileTree.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Attributes = QMap<QString, QByteArray>;
using Sources = std::vector<PowerSourceDescription>;

const auto mainsPower = u"AC Power"_s;
const auto batteryPower = u"Battery Power"_s;

PowerSourceDescription internalBattery(std::optional<qint64> current, std::optional<qint64> max)
{
    return {.type = u"InternalBattery"_s, .currentCapacity = current, .maxCapacity = max};
}

} // namespace

class SysfsPowerSourcesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_tree = std::make_unique<FileTree>();
        m_clock = std::make_unique<FakeClock>();
    }

    void aKernelWithoutPowerSuppliesCannotTell()
    {
        QVERIFY(!SysfsPowerSources(*m_clock, m_tree->root()).snapshot());
        QCOMPARE(m_clock->pending(), std::size_t{0});
    }

    void aDesktopMachineRunsOnMainsAndIsNeverLookedAt()
    {
        m_tree->makeDirectory(u"class/power_supply"_s);
        const SysfsPowerSources sources{*m_clock, m_tree->root()};
        QCOMPARE(sources.snapshot()->providingType, mainsPower);
        QVERIFY(sources.snapshot()->sources.empty());
        QCOMPARE(m_clock->pending(), std::size_t{0});
    }

    void aDischargingBatteryWithoutMainsIsBatteryPower()
    {
        supply(u"ADP1"_s, {{u"type"_s, "Mains"}, {u"online"_s, "0"}});
        battery(u"BAT0"_s, "Discharging", "57");
        QCOMPARE(read().providingType, batteryPower);
        QCOMPARE(read().sources, Sources{internalBattery(57, 100)});
    }

    void mainsWinOverADischargingBattery()
    {
        supply(u"ADP1"_s, {{u"type"_s, "Mains"}, {u"online"_s, "1"}});
        battery(u"BAT0"_s, "Discharging", "57");
        QCOMPARE(read().providingType, mainsPower);
    }

    void aBatteryThatDoesNotDischargeMeansMains()
    {
        battery(u"BAT0"_s, "Full", "100");
        QCOMPARE(read().providingType, mainsPower);
    }

    void batteriesComeInTheOrderOfTheirNames()
    {
        battery(u"BAT1"_s, "Discharging", "20");
        battery(u"BAT0"_s, "Discharging", "90");
        QCOMPARE(read().sources, (Sources{internalBattery(90, 100), internalBattery(20, 100)}));
    }

    void theBatteryOfAMouseIsNotAPowerSource()
    {
        battery(u"hidpp_battery_0"_s, "Discharging", "15");
        m_tree->write(u"class/power_supply/hidpp_battery_0/scope"_s, "Device\n");
        QCOMPARE(read().providingType, mainsPower);
        QVERIFY(read().sources.empty());
    }

    void aBatteryThatIsNotPresentIsNotASource()
    {
        battery(u"BAT0"_s, "Discharging", "15");
        m_tree->write(u"class/power_supply/BAT0/present"_s, "0\n");
        QCOMPARE(read().providingType, mainsPower);
        QVERIFY(read().sources.empty());
    }

    void powerOverUsbIsMains()
    {
        supply(u"ucsi-source-psy-1"_s, {{u"type"_s, "USB"}, {u"online"_s, "1"}});
        battery(u"BAT0"_s, "Discharging", "50");
        QCOMPARE(read().providingType, mainsPower);
        m_tree->write(u"class/power_supply/ucsi-source-psy-1/device/typec/port0/power_role"_s, "source [sink]\n");
        QCOMPARE(read().providingType, mainsPower);
    }

    void aUsbPortThatGivesPowerIsNotMains()
    {
        supply(u"ucsi-source-psy-1"_s, {{u"type"_s, "USB"}, {u"online"_s, "1"}});
        m_tree->write(u"class/power_supply/ucsi-source-psy-1/device/typec/port0/power_role"_s, "[source] sink\n");
        battery(u"BAT0"_s, "Discharging", "50");
        QCOMPARE(read().providingType, batteryPower);
    }

    void aDischargingUninterruptibleSupplyIsUpsPower()
    {
        supply(u"UPS0"_s, {{u"type"_s, "UPS"}, {u"status"_s, "Discharging"}});
        supply(u"ADP1"_s, {{u"type"_s, "Mains"}, {u"online"_s, "1"}});
        QCOMPARE(read().providingType, u"UPS Power"_s);
        QCOMPARE(read().sources.size(), std::size_t{1});
        QCOMPARE(read().sources.front().type, u"UPS"_s);
    }

    void withoutAPercentageEnergyOrChargeTell()
    {
        supply(u"BAT0"_s, {{u"type"_s, "Battery"}, {u"energy_now"_s, "4975"}, {u"energy_full"_s, "5000"}});
        supply(u"BAT1"_s, {{u"type"_s, "Battery"}, {u"charge_now"_s, "5150"}, {u"charge_full"_s, "5000"}});
        QCOMPARE(read().sources, (Sources{internalBattery(4975, 5000), internalBattery(5150, 5000)}));
    }

    void anAbsurdPercentageIsUnknown_data()
    {
        QTest::addColumn<QByteArray>("capacity");
        QTest::newRow("62458") << QByteArray{"62458"};
        QTest::newRow("negative") << QByteArray{"-1"};
        QTest::newRow("garbage") << QByteArray{"full"};
        QTest::newRow("empty") << QByteArray{};
        QTest::newRow("beyond any number") << QByteArray{"99999999999999999999"};
        QTest::newRow("with a tail") << QByteArray{"57 %"};
    }

    void anAbsurdPercentageIsUnknown()
    {
        QFETCH(const QByteArray, capacity);
        battery(u"BAT0"_s, "Discharging", capacity);
        QCOMPARE(read().sources, Sources{internalBattery({}, {})});
        QCOMPARE(read().providingType, batteryPower);
    }

    void absurdEnergyIsUnknown()
    {
        supply(u"BAT0"_s, {{u"type"_s, "Battery"}, {u"energy_now"_s, "62458"}, {u"energy_full"_s, "100"}});
        supply(u"BAT1"_s, {{u"type"_s, "Battery"}, {u"energy_now"_s, "5"}, {u"energy_full"_s, "0"}});
        QCOMPARE(read().sources, (Sources{internalBattery({}, {}), internalBattery({}, {})}));
    }

    void anAbsurdPercentageGivesWayToTheEnergy()
    {
        battery(u"BAT0"_s, "Discharging", "62458");
        m_tree->write(u"class/power_supply/BAT0/energy_now"_s, "30\n");
        m_tree->write(u"class/power_supply/BAT0/energy_full"_s, "60\n");
        QCOMPARE(read().sources, Sources{internalBattery(30, 60)});
    }

    void suppliesThatCannotBeReadAreSkipped()
    {
        for (const QString& name : {u"ADP1"_s, u"BAT0"_s}) {
            for (const QString& attribute : {u"type"_s, u"online"_s, u"status"_s, u"capacity"_s, u"present"_s})
                m_tree->breakFile(u"class/power_supply/%1/%2"_s.arg(name, attribute));
        }
        m_tree->write(u"class/power_supply/plain-file"_s, "no directory\n");
        m_tree->makeDirectory(u"class/power_supply/empty"_s);
        QCOMPARE(read().providingType, mainsPower);
        QVERIFY(read().sources.empty());
    }

    void attributesThatCannotBeReadAreUnknown()
    {
        battery(u"BAT0"_s, "Discharging", "50");
        supply(u"ADP1"_s, {{u"type"_s, "Mains"}, {u"online"_s, "garbage"}});
        m_tree->breakFile(u"class/power_supply/BAT0/capacity"_s);
        QCOMPARE(read().providingType, batteryPower);
        QCOMPARE(read().sources, Sources{internalBattery({}, {})});
    }

    void anEventIsReportedAlways()
    {
        m_tree->makeDirectory(u"class/power_supply"_s);
        SysfsPowerSources sources{*m_clock, m_tree->root()};
        int changes = 0;
        const Subscription listening = sources.changed.subscribe([&] { ++changes; });
        sources.handleEvent();
        QCOMPARE(changes, 1);
    }

    void aBatteryThatRunsDownInSilenceIsNoticedWithinAMinute()
    {
        battery(u"BAT0"_s, "Discharging", "50");
        SysfsPowerSources sources{*m_clock, m_tree->root()};
        int changes = 0;
        const Subscription listening = sources.changed.subscribe([&] { ++changes; });
        m_clock->advance(5min);
        QCOMPARE(changes, 0);
        battery(u"BAT0"_s, "Discharging", "49");
        m_clock->advance(1min);
        QCOMPARE(changes, 1);
    }

    void aBatteryThatGoesIsNoLongerLookedAt()
    {
        battery(u"BAT0"_s, "Discharging", "50");
        SysfsPowerSources sources{*m_clock, m_tree->root()};
        QCOMPARE(m_clock->pending(), std::size_t{1});
        m_tree->remove(u"class/power_supply/BAT0"_s);
        sources.handleEvent();
        QCOMPARE(m_clock->pending(), std::size_t{0});
    }

private:
    void supply(const QString& name, const Attributes& attributes)
    {
        for (auto attribute = attributes.begin(); attribute != attributes.end(); ++attribute)
            m_tree->write(u"class/power_supply/%1/%2"_s.arg(name, attribute.key()), attribute.value() + '\n');
    }

    void battery(const QString& name, const QByteArray& status, const QByteArray& capacity)
    {
        supply(name, {{u"type"_s, "Battery"}, {u"present"_s, "1"}, {u"status"_s, status}, {u"capacity"_s, capacity}});
    }

    PowerSourcesSnapshot read() { return *SysfsPowerSources(*m_clock, m_tree->root()).snapshot(); }

    std::unique_ptr<FileTree> m_tree;
    std::unique_ptr<FakeClock> m_clock;
};

QTEST_GUILESS_MAIN(SysfsPowerSourcesTest)
#include "SysfsPowerSourcesTest.moc"
