// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
//
// Runs the real power-profiles-daemon, which watches the turbo of a processor that is made of files.
#include "platform/linux/thermal/PowerProfilesHeat.h"

#include "fakes/FakeClock.h"
#include "platform/linux/thermal/MachineThermalState.h"
#include "support/FileTree.h"
#include "support/PrivateBus.h"
#include "support/TestSupport.h"

#include <QDBusConnectionInterface>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto name = u"net.hadess.PowerProfiles"_s;
const auto path = u"/net/hadess/PowerProfiles"_s;

/// The daemon of another machine, which is too hot at first.
class OtherDaemon : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "net.hadess.PowerProfiles")
    Q_PROPERTY(QString PerformanceDegraded READ performanceDegraded)

public:
    QString performanceDegraded() const { return u"high-operating-temperature"_s; }

    static void announce(const QDBusConnection& bus, const QVariant& value)
    {
        auto signal = QDBusMessage::createSignal(path, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s);
        signal.setArguments({name, QVariantMap{{u"PerformanceDegraded"_s, value}}, QStringList()});
        bus.send(signal);
    }
};

} // namespace

class PowerProfilesHeatTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_bus.emplace();
        QVERIFY(m_bus->isReady());
        m_sys.emplace();
        m_sys->write(u"sys/firmware/acpi/pm_profile"_s, "2\n");
        m_sys->write(processor + u"/intel_pstate/status"_s, "active\n");
        m_sys->write(processor + u"/intel_pstate/turbo_pct"_s, "29\n");
        m_sys->write(processor + u"/cpufreq/policy0/scaling_governor"_s, "powersave\n");
        m_sys->write(processor + u"/cpufreq/policy0/energy_performance_preference"_s, "balance_performance\n");
        m_sys->write(turboSwitch, "0\n");
    }

    void cleanup()
    {
        endDaemon();
        m_sys.reset();
        m_bus.reset();
    }

    void withoutTheDaemonNothingIsKnown()
    {
        const PowerProfilesHeat none{QDBusConnection(u"none"_s)};
        QVERIFY(!none.isTooHot());
        const PowerProfilesHeat nobody{connect()};
        QVERIFY(!nobody.isTooHot());
    }

    void theDaemonTellsOfTheProcessor()
    {
        PowerProfilesHeat heat{connect()};
        int changes = 0;
        const Subscription listening = heat.changed.subscribe([&] { ++changes; });
        startDaemon();
        setTurbo(false);
        QTRY_VERIFY(heat.isTooHot());
        QCOMPARE(changes, 1);
        setTurbo(true);
        QTRY_VERIFY(!heat.isTooHot());
        QCOMPARE(changes, 2);
    }

    void theDaemonMayHaveBeenThereBeforeUsAndLeave()
    {
        setTurbo(false);
        startDaemon();
        const PowerProfilesHeat heat{connect()};
        QTRY_VERIFY(heat.isTooHot());
        endDaemon();
        QTRY_VERIFY(!heat.isTooHot());
        startDaemon();
        QTRY_VERIFY(heat.isTooHot());
    }

    void theMachineIsWarmWhileTheDaemonSaysSo()
    {
        startDaemon();
        FakeClock clock;
        const MachineThermalState state{clock, connect(), m_sys->root() + u"/sys"_s};
        QCOMPARE(clock.pending(), std::size_t{0});
        setTurbo(false);
        QTRY_COMPARE(clock.pending(), std::size_t{1});
        clock.advance(50s);
        QCOMPARE(state.level(), ThermalLevel::nominal);
        clock.advance(10s);
        QCOMPARE(state.level(), ThermalLevel::fair);
        setTurbo(true);
        QTRY_VERIFY((clock.advance(10s), state.level() == ThermalLevel::nominal));
        QCOMPARE(clock.pending(), std::size_t{0});
    }

    void otherReasonsAreNoHeat_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::newRow("a lap") << QVariant(u"lap-detected"_s);
        QTest::newRow("none") << QVariant(QString());
        QTest::newRow("no text") << QVariant(1);
    }

    void otherReasonsAreNoHeat()
    {
        QFETCH(QVariant, value);
        OtherDaemon daemon;
        QDBusConnection service = connect();
        QVERIFY(service.registerObject(path, &daemon, QDBusConnection::ExportAllProperties));
        QVERIFY(service.registerService(name));
        const PowerProfilesHeat heat{connect()};
        QTRY_VERIFY(heat.isTooHot());
        OtherDaemon::announce(service, value);
        QTRY_VERIFY(!heat.isTooHot());
    }

private:
    QDBusConnection connect() { return m_bus->connect(u"power-profiles-%1"_s.arg(++m_connections)); }

    /// In place: the file is never empty, as the kernel's never is.
    void setTurbo(bool on) const
    {
        QFile file(m_sys->root() + u'/' + turboSwitch);
        if (!file.open(QIODevice::ReadWrite) || file.write(on ? "0\n" : "1\n") != 2)
            qFatal("the turbo cannot be switched");
    }

    void startDaemon()
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, m_bus->address());
        // What it takes for the root of the file system.
        environment.insert(u"UMOCKDEV_DIR"_s, m_sys->root());
        m_daemon.setProcessEnvironment(environment);
        m_daemon.setStandardErrorFile(QProcess::nullDevice());
        m_daemon.start(u"/usr/libexec/power-profiles-daemon"_s, {});
        QVERIFY(m_daemon.waitForStarted());
        const QDBusConnection bus = connect();
        QTRY_VERIFY(bus.interface()->isServiceRegistered(name));
    }

    void endDaemon()
    {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    const QString processor = u"sys/devices/system/cpu"_s;
    const QString turboSwitch = processor + u"/intel_pstate/no_turbo"_s;
    std::optional<PrivateBus> m_bus;
    std::optional<FileTree> m_sys;
    QProcess m_daemon;
    int m_connections = 0;
};

QTEST_GUILESS_MAIN(PowerProfilesHeatTest)
#include "PowerProfilesHeatTest.moc"
