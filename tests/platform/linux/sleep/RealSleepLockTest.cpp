// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
//
// Runs against the system's own logind and systemd-inhibit, in a virtual desktop where this test is root. systemd and
// the question for a password are stood in for: there is no systemd to run anything there.
#include "dbus/BusNames.h"
#include "fakes/FakeDBusService.h"
#include "platform/linux/inhibitors/LogindInhibitors.h"
#include "support/StandInPrograms.h"
#include "support/TestSupport.h"

#include <QDBusConnectionInterface>
#include <QDBusVariant>
#include <QProcess>

#include <csignal>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class RealSleepLockTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(qEnvironmentVariableIsSet("TARVIK_DESKTOP"), "Run this inside scripts/desktop.");
        m_programs.write(u"pkexec"_s, "[ \"$1\" = --disable-internal-agent ] || exit 99; shift; exec \"$@\"");
        m_programs.write(u"systemd-run"_s,
            "while case $1 in --*) true ;; *) false ;; esac; do shift; done\n"
            "exec 3<&0; \"$@\" <&3 3<&- & exec 3<&-; wait $!");
        m_programs.link(u"systemd-inhibit"_s, u"/usr/bin/systemd-inhibit"_s);
        m_programs.link(u"cat"_s, u"/bin/cat"_s);
        m_systemd.handler = [this](const QDBusMessage& call) {
            return call.createReply(QVariant::fromValue(QDBusVariant(m_version)));
        };
        QVERIFY(m_systemd.appear());
    }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        QTRY_COMPARE(locks(), QList<uint>());
        m_version = u"252"_s;
        m_probe.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_probe.start(QStringLiteral(SLEEP_PROBE), {m_programs.path()});
        QVERIFY(m_probe.waitForStarted());
    }

    void cleanup()
    {
        m_session.unregisterService(BusNames::kdePowerManager);
        m_probe.closeWriteChannel();
        QVERIFY(m_probe.state() == QProcess::NotRunning || m_probe.waitForFinished());
    }

    void whereLogindActsTheLockIsOurs()
    {
        expect("take", "taken");
        QCOMPARE(locks(), QList<uint>{static_cast<uint>(m_probe.processId())});
        expect("release", "released");
        QTRY_COMPARE(locks(), QList<uint>());
    }

    void onNewerSystemsTheLockIsOursEverywhere()
    {
        m_version = u"257"_s;
        QVERIFY(m_session.registerService(BusNames::kdePowerManager));
        expect("take", "taken");
        QCOMPARE(locks(), QList<uint>{static_cast<uint>(m_probe.processId())});
    }

    void elseItIsRootsUntilItIsGivenBack()
    {
        takeRootsLock();
        expect("release", "released");
        QTRY_COMPARE(locks(), QList<uint>());
    }

    void rootsLockEndsWithUs()
    {
        takeRootsLock();
        m_probe.kill();
        QVERIFY(m_probe.waitForFinished());
        QTRY_COMPARE(locks(), QList<uint>());
    }

    void rootsLockCanBeTakenAway()
    {
        takeRootsLock();
        QCOMPARE(kill(static_cast<pid_t>(locks().constFirst()), SIGKILL), 0);
        QTRY_VERIFY(m_probe.canReadLine());
        QCOMPARE(m_probe.readLine(), QByteArray("lost\n"));
        QTRY_COMPARE(locks(), QList<uint>());
    }

    void anotherProgramThatTakesTheLidNeedsRootsLock()
    {
        QProcess daemon;
        daemon.start(u"systemd-inhibit"_s, {u"--what=handle-lid-switch"_s, u"cat"_s});
        QVERIFY(daemon.waitForStarted());
        daemon.write("\n");
        QVERIFY(daemon.waitForReadyRead());
        expect("take", "taken");
        QCOMPARE(locks().size(), 1);
        QVERIFY(locks().constFirst() != static_cast<uint>(m_probe.processId()));
        daemon.closeWriteChannel();
        QVERIFY(daemon.waitForFinished());
    }

    void rootsLockOutlivesLogind()
    {
        takeRootsLock();
        const QList<uint> before = locks();
        const uint pid = m_bus.interface()->servicePid(BusNames::logind);
        const QString program = QFile::symLinkTarget(u"/proc/%1/exe"_s.arg(pid));
        QCOMPARE(kill(static_cast<pid_t>(pid), SIGKILL), 0);
        QVERIFY(QProcess::startDetached(program));
        QTRY_COMPARE(locks(), before);
        expect("release", "released");
        QTRY_COMPARE(locks(), QList<uint>());
    }

private:
    void expect(const QByteArray& command, const QByteArray& answer)
    {
        m_probe.write(command + '\n');
        QTRY_VERIFY(m_probe.canReadLine());
        QCOMPARE(m_probe.readLine(), answer + '\n');
    }

    void takeRootsLock()
    {
        QVERIFY(m_session.registerService(BusNames::kdePowerManager));
        expect("take", "taken");
        QCOMPARE(locks().size(), 1);
        QVERIFY(locks().constFirst() != static_cast<uint>(m_probe.processId()));
    }

    /// The processes that hold Tarvik's lock.
    QList<uint> locks()
    {
        QList<uint> processes;
        for (const LogindInhibitor& inhibitor :
            LogindInhibitors::listIn(m_bus.call(LogindInhibitors::list())).value_or(QList<LogindInhibitor>{})) {
            if (inhibitor.who == u"Tarvik"_s && inhibitor.blocks
                && inhibitor.what == QStringList{u"sleep"_s, u"handle-lid-switch"_s})
                processes.append(inhibitor.process);
        }
        return processes;
    }

    StandInPrograms m_programs;
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SystemBus, u"observer"_s);
    QDBusConnection m_session = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"daemon"_s);
    FakeDBusService m_systemd{QDBusConnection::connectToBus(QDBusConnection::SystemBus, u"systemd"_s),
        BusNames::systemd,
        u"/org/freedesktop/systemd1"_s};
    QString m_version;
    QProcess m_probe;
};

QTEST_GUILESS_MAIN(RealSleepLockTest)
#include "RealSleepLockTest.moc"
