// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/power/UPowerPowerSources.h"

#include "fakes/FakeUPower.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

using Sources = std::vector<PowerSourceDescription>;

const auto onMains = std::optional{u"AC Power"_s};
const auto onBatteries = std::optional{u"Battery Power"_s};

QVariantMap battery(double percentage, const QString& nativePath = u"BAT0"_s)
{
    return {{u"NativePath"_s, nativePath},
        {u"Type"_s, 2U},
        {u"State"_s, 2U},
        {u"PowerSupply"_s, true},
        {u"IsPresent"_s, true},
        {u"Percentage"_s, percentage}};
}

QVariantMap with(QVariantMap device, const QString& property, const QVariant& value)
{
    device[property] = value;
    return device;
}

PowerSourceDescription internalBattery(std::optional<qint64> current)
{
    return {.type = u"InternalBattery"_s,
        .currentCapacity = current,
        .maxCapacity = current ? std::optional<qint64>{10000} : std::nullopt};
}

} // namespace

class UPowerPowerSourcesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_upower = std::make_unique<FakeUPower>(m_service);
        m_upower->manager = {{u"OnBattery"_s, true}};
        m_changes = 0;
    }

    void cleanup()
    {
        m_sources.reset();
        m_upower.reset();
    }

    void nothingIsKnownBeforeTheFirstAnswerAndNothingBlocks()
    {
        m_upower->start();
        const UPowerPowerSources sources{m_application};
        QVERIFY(!sources.snapshot());
    }

    void theFirstAnswerIsReportedOnce()
    {
        m_upower->devices[u"bat0"_s] = battery(57.25);
        m_upower->devices[u"mouse"_s] = with(battery(3), u"PowerSupply"_s, false);
        start();
        QCOMPARE(snapshot().providingType, onBatteries);
        QCOMPARE(snapshot().sources, Sources{internalBattery(5725)});
        QCOMPARE(m_changes, 1);
    }

    void aMachineWithoutDevicesRunsOnMains()
    {
        m_upower->manager[u"OnBattery"_s] = false;
        start();
        QCOMPARE(snapshot().providingType, onMains);
        QVERIFY(snapshot().sources.empty());
    }

    void batteriesComeInTheOrderOfTheirNativePaths()
    {
        m_upower->devices[u"a"_s] = battery(10, u"BAT1"_s);
        m_upower->devices[u"b"_s] = battery(90, u"BAT0"_s);
        start();
        QCOMPARE(snapshot().sources, (Sources{internalBattery(9000), internalBattery(1000)}));
    }

    void whatDoesNotPowerTheMachineIsLeftOut()
    {
        m_upower->devices[u"a"_s] = with(battery(50), u"PowerSupply"_s, false);
        m_upower->devices[u"b"_s] = with(battery(50), u"IsPresent"_s, false);
        m_upower->devices[u"c"_s] = with(battery(50), u"Type"_s, 1U);
        m_upower->devices[u"d"_s] = with(battery(50), u"Type"_s, 5U);
        start();
        QVERIFY(snapshot().sources.empty());
    }

    void aDischargingUninterruptibleSupplyIsUpsPower()
    {
        m_upower->devices[u"ups"_s] = with(battery(50), u"Type"_s, 3U);
        start();
        QCOMPARE(snapshot().providingType, u"UPS Power"_s);
        QCOMPARE(snapshot().sources.front().type, u"UPS"_s);
        m_upower->manager[u"OnBattery"_s] = false;
        m_upower->setDevice(u"ups"_s, {{u"State"_s, 4U}});
        m_upower->set(u"OnBattery"_s, false);
        QTRY_COMPARE(snapshot().providingType, onMains);
    }

    void pluggingInIsReported()
    {
        start();
        m_upower->set(u"OnBattery"_s, false);
        QTRY_COMPARE(m_changes, 2);
        QCOMPARE(snapshot().providingType, onMains);
    }

    void changesAtTheSameTimeAreReportedAsOne()
    {
        m_upower->devices[u"bat0"_s] = battery(50);
        start();
        m_upower->set(u"OnBattery"_s, false);
        m_upower->setDevice(u"bat0"_s, {{u"State"_s, 1U}, {u"Percentage"_s, 51.0}});
        m_upower->setDevice(u"bat0"_s, {{u"Percentage"_s, 52.0}});
        letEverythingArrive();
        QTRY_COMPARE(m_changes, 2);
        QCOMPARE(snapshot().providingType, onMains);
        QCOMPARE(snapshot().sources, Sources{internalBattery(5200)});
    }

    void aChangeThatDoesNotMatterIsNotReported()
    {
        m_upower->devices[u"bat0"_s] = battery(50);
        start();
        m_upower->setDevice(u"bat0"_s, {{u"UpdateTime"_s, quint64{1}}, {u"Energy"_s, 12.5}});
        m_upower->setDevice(u"bat0"_s, {{u"Percentage"_s, 49.0}});
        QTRY_COMPARE(snapshot().sources, Sources{internalBattery(4900)});
        QTRY_COMPARE(m_changes, 2);
    }

    void aPropertyThatIsOnlySaidToHaveChangedIsRead()
    {
        m_upower->devices[u"bat0"_s] = battery(50);
        start();
        m_upower->invalidate(u"bat0"_s, u"Percentage"_s, 40.0);
        QTRY_COMPARE(snapshot().sources, Sources{internalBattery(4000)});
    }

    void devicesComeAndGo()
    {
        start();
        m_upower->add(u"bat0"_s, battery(80));
        QTRY_COMPARE(snapshot().sources, Sources{internalBattery(8000)});
        m_upower->remove(u"bat0"_s);
        QTRY_VERIFY(snapshot().sources.empty());
        QTRY_COMPARE(m_changes, 3);
    }

    void aServiceThatComesLaterIsRead()
    {
        make();
        QVERIFY(!m_sources->snapshot());
        m_upower->start();
        QTRY_VERIFY(m_sources->snapshot());
        QTRY_COMPARE(m_changes, 1);
    }

    void aServiceThatVanishesLeavesNothingKnown()
    {
        start();
        m_upower->stop();
        QTRY_VERIFY(!m_sources->snapshot());
        QTRY_COMPARE(m_changes, 2);
    }

    void aServiceThatRestartsIsReadAnew()
    {
        m_upower->devices[u"bat0"_s] = battery(50);
        start();
        m_upower->stop();
        QTRY_VERIFY(!m_sources->snapshot());
        m_upower->devices = {{u"bat1"_s, battery(20, u"BAT1"_s)}};
        m_upower->manager[u"OnBattery"_s] = false;
        m_upower->start();
        QTRY_VERIFY(m_sources->snapshot());
        QCOMPARE(snapshot().providingType, onMains);
        QCOMPARE(snapshot().sources, Sources{internalBattery(2000)});
    }

    void aServiceThatAnswersLateIsBelievedThen()
    {
        m_upower->answers = false;
        m_upower->devices[u"bat0"_s] = battery(50);
        m_upower->start();
        make();
        QTRY_VERIFY(m_upower->unanswered.size() >= 2);
        QVERIFY(!m_sources->snapshot());
        QCOMPARE(m_changes, 0);
        m_upower->answerLate();
        QTRY_VERIFY(m_sources->snapshot());
        QCOMPARE(snapshot().sources, Sources{internalBattery(5000)});
    }

    void answersOfAServiceThatIsGoneAreNotBelieved()
    {
        m_upower->answers = false;
        m_upower->start();
        make();
        QTRY_VERIFY(m_upower->unanswered.size() >= 2);
        m_upower->stop();
        m_upower->answerLate();
        m_upower->manager[u"OnBattery"_s] = false;
        m_upower->start();
        QTRY_VERIFY(m_sources->snapshot());
        QCOMPARE(snapshot().providingType, onMains);
    }

    void wrongTypesCostOnlyWhatTheyBelongTo_data()
    {
        QTest::addColumn<QString>("property");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<bool>("isSource");
        QTest::newRow("type as text") << "Type" << QVariant{u"battery"_s} << false;
        QTest::newRow("type as another number") << "Type" << QVariant{2} << false;
        QTest::newRow("type that does not exist") << "Type" << QVariant{4000000000U} << false;
        QTest::newRow("supply as number") << "PowerSupply" << QVariant{1} << false;
        QTest::newRow("presence as text") << "IsPresent" << QVariant{u"true"_s} << false;
        QTest::newRow("percentage as text") << "Percentage" << QVariant{u"50"_s} << true;
        QTest::newRow("percentage as list") << "Percentage" << QVariant{QStringList{u"50"_s}} << true;
        QTest::newRow("percentage of 62458") << "Percentage" << QVariant{62458.0} << true;
        QTest::newRow("negative percentage") << "Percentage" << QVariant{-1.0} << true;
        QTest::newRow("endless percentage") << "Percentage" << QVariant{qInf()} << true;
        QTest::newRow("percentage that is no number") << "Percentage" << QVariant{qQNaN()} << true;
    }

    void wrongTypesCostOnlyWhatTheyBelongTo()
    {
        QFETCH(const QString, property);
        QFETCH(const QVariant, value);
        QFETCH(const bool, isSource);
        m_upower->devices[u"a"_s] = with(battery(1, u"BAT0"_s), property, value);
        m_upower->devices[u"b"_s] = battery(70, u"BAT1"_s);
        start();
        const Sources expected
            = isSource ? Sources{internalBattery({}), internalBattery(7000)} : Sources{internalBattery(7000)};
        QCOMPARE(snapshot().sources, expected);
    }

    void withoutAUsableOnBatteryTheProvidingTypeIsUnknown()
    {
        m_upower->manager[u"OnBattery"_s] = u"yes"_s;
        start();
        QCOMPARE(snapshot().providingType, std::optional<QString>{});
    }

    void aListOfDevicesThatIsNoneLeavesNothingKnown()
    {
        m_upower->enumeration = u"garbage"_s;
        m_upower->start();
        make();
        QTRY_VERIFY(m_upower->calls >= 2);
        const int calls = m_upower->calls;
        // One more exchange, after which an answer to the earlier ones has arrived.
        m_upower->enumeration = QVariant{};
        QVERIFY(!m_sources->snapshot());
        m_upower->set(u"OnBattery"_s, false);
        QTRY_VERIFY(m_sources->snapshot());
        QVERIFY(m_upower->calls <= calls + 2);
    }

    void aDeviceThatGivesAnErrorIsLeftOut()
    {
        m_upower->devices[u"good"_s] = battery(70);
        m_upower->enumeration = QVariant::fromValue(
            QList{QDBusObjectPath{FakeUPower::pathOf(u"bad"_s)}, QDBusObjectPath{FakeUPower::pathOf(u"good"_s)}});
        start();
        QCOMPARE(snapshot().sources, Sources{internalBattery(7000)});
    }

    void signalsOfOtherShapesAreIgnored()
    {
        start();
        for (const QString& member : {u"DeviceAdded"_s, u"DeviceRemoved"_s}) {
            auto signal = QDBusMessage::createSignal(u"/org/freedesktop/UPower"_s, u"org.freedesktop.UPower"_s, member);
            signal << 7;
            m_service.send(signal);
        }
        auto signal = QDBusMessage::createSignal(
            u"/org/freedesktop/UPower"_s, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s);
        signal << u"org.freedesktop.UPower"_s << u"OnBattery"_s;
        m_service.send(signal);
        m_upower->set(u"OnBattery"_s, false);
        QTRY_COMPARE(snapshot().providingType, onMains);
        QTRY_COMPARE(m_changes, 2);
    }

private:
    void make()
    {
        m_sources = std::make_unique<UPowerPowerSources>(m_application);
        m_listening = m_sources->changed.subscribe([this] { ++m_changes; });
    }

    void start()
    {
        m_upower->start();
        make();
        QTRY_COMPARE(m_changes, 1);
        QVERIFY(m_sources->snapshot());
    }

    /// Blocks until all that was sent waits in this thread's event loop: the bus keeps the order of what it handles.
    void letEverythingArrive()
    {
        const auto ping = QDBusMessage::createMethodCall(
            u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"GetId"_s);
        m_service.call(ping);
        m_application.call(ping);
    }

    PowerSourcesSnapshot snapshot() const { return m_sources->snapshot().value_or(PowerSourcesSnapshot{}); }

    // Two connections, because calls within one never reach the bus.
    QDBusConnection m_service = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"service"_s);
    QDBusConnection m_application = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"application"_s);
    std::unique_ptr<FakeUPower> m_upower;
    std::unique_ptr<UPowerPowerSources> m_sources;
    int m_changes = 0;
    Subscription m_listening;
};

QTEST_GUILESS_MAIN(UPowerPowerSourcesTest)
#include "UPowerPowerSourcesTest.moc"
