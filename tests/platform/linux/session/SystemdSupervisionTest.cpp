// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/session/SystemdSupervision.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeUnitManager.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class SystemdSupervisionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_decisions.clear();
        m_program = {.path = u"/opt/tarvik 2/Tarvik"_s,
            .arguments = {u"--at-login"_s},
            .environment = {u"DISPLAY=:7"_s, u"JOURNAL_STREAM=1:2"_s},
            .cgroup = "0::/user.slice/user-1000.slice/session-3.scope",
            .processId = 4711,
            .isInForeground = false};
    }

    void cleanup()
    {
        m_supervision.reset();
        m_others.unregisterService(application);
    }

    void theProgramIsHandedOverOnceItIsOnTheBus()
    {
        FakeUnitManager systemd(m_services);
        QVERIFY(systemd.appear());
        handOver();
        QTRY_COMPARE(systemd.started, QStringList{u"app-com.morvanta.Tarvik@4711.service fail"_s});
        QVERIFY(m_decisions.isEmpty());
        QVERIFY(m_others.registerService(application));
        QTRY_COMPARE(m_decisions, QList<bool>{true});
        QCOMPARE(m_clock.pending(), std::size_t{0});
    }

    void theUnitStartsThisProgramAgainWhenItCrashed()
    {
        FakeUnitManager systemd(m_services);
        QVERIFY(systemd.appear());
        handOver();
        QTRY_COMPARE(systemd.started.size(), 1);
        QCOMPARE(systemd.commands.size(), 1);
        QCOMPARE(systemd.commands.constFirst().path, m_program.path);
        QCOMPARE(systemd.commands.constFirst().arguments, (QStringList{m_program.path, u"--at-login"_s}));
        QVERIFY(!systemd.commands.constFirst().ignoresFailure);
        const QStringList unset = systemd.properties.take(u"UnsetEnvironment"_s).toStringList();
        QCOMPARE(unset, SupervisedProgram::missing(m_program.environment));
        QCOMPARE(systemd.properties,
            (QVariantMap{{u"Description"_s, u"Tarvik"_s},
                {u"Type"_s, u"exec"_s},
                {u"Environment"_s, QStringList{u"DISPLAY=:7"_s}},
                {u"Slice"_s, u"app.slice"_s},
                {u"PartOf"_s, QStringList{u"graphical-session.target"_s}},
                {u"Restart"_s, u"on-failure"_s},
                {u"RestartUSec"_s, quint64{1'000'000}},
                {u"StartLimitIntervalUSec"_s, quint64{60'000'000}},
                {u"StartLimitBurst"_s, 4U},
                {u"KillMode"_s, u"process"_s},
                {u"CollectMode"_s, u"inactive-or-failed"_s}}));
    }

    void aServiceThatDoesNotComeUpIsNotWaitedForForEver()
    {
        FakeUnitManager systemd(m_services);
        QVERIFY(systemd.appear());
        handOver();
        QTRY_COMPARE(systemd.started.size(), 1);
        expectLog(QtWarningMsg, u"^systemd did not start the application within 20 seconds$"_s);
        m_clock.advance(SystemdSupervision::patience);
        QTRY_COMPARE(m_decisions, QList<bool>{false});
        QVERIFY(m_others.registerService(application));
        settle();
        QCOMPARE(m_decisions, QList<bool>{false});
    }

    void withoutSystemdThisProcessGoesOn()
    {
        handOver();
        QTRY_COMPARE(m_decisions, QList<bool>{false});
    }

    void aRefusalMeansThatThisProcessGoesOn()
    {
        FakeUnitManager systemd(m_services);
        systemd.refuses = true;
        QVERIFY(systemd.appear());
        expectLog(QtWarningMsg, u"^nobody starts the application again should it crash: Not like that$"_s);
        handOver();
        QTRY_COMPARE(m_decisions, QList<bool>{false});
        QCOMPARE(m_clock.pending(), std::size_t{0});
    }

    void withoutABusThisProcessGoesOn()
    {
        handOver(QDBusConnection(u"nowhere"_s));
        QVERIFY(m_decisions.isEmpty());
        QTRY_COMPARE(m_decisions, QList<bool>{false});
    }

    void whoeverRunsAlreadyIsLeftToThisProcess()
    {
        FakeUnitManager systemd(m_services);
        QVERIFY(systemd.appear());
        QVERIFY(m_others.registerService(application));
        handOver();
        QTRY_COMPARE(m_decisions, QList<bool>{false});
        settle();
        QCOMPARE(systemd.started, QStringList());
    }

    void aServiceDoesNotHandOver()
    {
        m_program.cgroup
            = "0::/user.slice/user-1000.slice/user@1000.service/app.slice/app-com.morvanta.Tarvik@42.service";
        aProcessThatStaysGoesOn();
    }

    void whatRunsInFrontOfSomebodyStaysThere()
    {
        m_program.isInForeground = true;
        aProcessThatStaysGoesOn();
    }

    void itsReceiverMayDestroyIt()
    {
        FakeUnitManager systemd(m_services);
        QVERIFY(systemd.appear());
        m_supervision.emplace(m_client, m_clock, application, m_program);
        m_supervision->handOver([this](bool isHandedOver) {
            m_supervision.reset();
            m_decisions.append(isHandedOver);
        });
        QTRY_COMPARE(systemd.started.size(), 1);
        QVERIFY(m_others.registerService(application));
        QTRY_COMPARE(m_decisions, QList<bool>{true});
    }

private:
    static inline const QString application = u"com.morvanta.Tarvik"_s;

    void handOver() { handOver(m_client); }
    void handOver(const QDBusConnection& bus)
    {
        m_supervision.emplace(bus, m_clock, application, m_program);
        m_supervision->handOver([this](bool isHandedOver) { m_decisions.append(isHandedOver); });
    }

    void aProcessThatStaysGoesOn()
    {
        FakeUnitManager systemd(m_services);
        QVERIFY(systemd.appear());
        handOver();
        QTRY_COMPARE(m_decisions, QList<bool>{false});
        settle();
        QCOMPARE(systemd.started, QStringList());
    }

    /// What the client has sent before and would have got by now has arrived.
    void settle()
    {
        const auto ping = QDBusMessage::createMethodCall(
            m_services.baseService(), u"/"_s, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s);
        QCOMPARE(m_client.call(ping, QDBus::BlockWithGui).type(), QDBusMessage::ReplyMessage);
    }

    FakeClock m_clock;
    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
    QDBusConnection m_others = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"others"_s);
    SupervisedProgram m_program;
    std::optional<SystemdSupervision> m_supervision;
    QList<bool> m_decisions;
};

QTEST_GUILESS_MAIN(SystemdSupervisionTest)
#include "SystemdSupervisionTest.moc"
