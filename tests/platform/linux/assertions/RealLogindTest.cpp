// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
//
// Runs against the system's own logind, in a virtual desktop whose processes this test may kill.
#include "fakes/FakeClock.h"
#include "platform/linux/assertions/DesktopHoldRules.h"
#include "platform/linux/assertions/DesktopPowerAssertions.h"
#include "platform/linux/inhibitors/LogindInhibitors.h"
#include "platform/linux/inhibitors/SystemdVersion.h"
#include "support/TestSupport.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QProcess>
#include <QTemporaryFile>

#include <sys/mount.h>

#include <csignal>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using enum PowerAssertionType;

namespace {

const auto logindName = u"org.freedesktop.login1"_s;

} // namespace

class RealLogindTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(qEnvironmentVariableIsSet("TARVIK_DESKTOP"), "Run this inside scripts/desktop: it kills logind.");
        QVERIFY(m_bus.isConnected());
    }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        QTRY_COMPARE(ownInhibitors(), QStringList());
    }

    void anAssertionIsListedUntilItEnds()
    {
        auto system = m_assertions.create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(ownInhibitors(), QStringList{u"idle Tarvik block"_s});
        QTRY_VERIFY(m_assertions.holds().constFirst().effective);
        auto display = m_assertions.create(preventUserIdleDisplaySleep, u"Tarvik"_s);
        QTRY_COMPARE(ownInhibitors(), (QStringList{u"idle Tarvik block"_s, u"idle Tarvik block"_s}));
        system.reset();
        QTRY_COMPARE(ownInhibitors(), QStringList{u"idle Tarvik block"_s});
        display.reset();
        QTRY_COMPARE(ownInhibitors(), QStringList());
    }

    void anAssertionThatEndsAtOnceLeavesNothing()
    {
        for (int i = 0; i < 20; ++i)
            auto assertion = m_assertions.create(preventUserIdleSystemSleep, u"Tarvik"_s);
        auto last = m_assertions.create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_VERIFY(m_assertions.holds().constFirst().effective);
        QTRY_COMPARE(ownInhibitors(), QStringList{u"idle Tarvik block"_s});
    }

    void aChildProcessDoesNotInheritIt()
    {
        auto assertion = m_assertions.create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(ownInhibitors(), QStringList{u"idle Tarvik block"_s});
        QProcess child;
        child.start(u"cat"_s);
        QVERIFY(child.waitForStarted());
        assertion.reset();
        QTRY_COMPARE(ownInhibitors(), QStringList());
        QCOMPARE(child.state(), QProcess::Running);
        child.closeWriteChannel();
        QVERIFY(child.waitForFinished());
    }

    /// Nothing really sleeps: here is no systemd that logind could ask to do it. That it tries is what tells that it
    /// may.
    void aSleepLockStopsItsOwnUserWhereTheRulesAssumeIt()
    {
        QTemporaryFile states;
        QVERIFY(states.open() && states.write("freeze mem\n") > 0 && states.flush());
        // What the kernel can do; without it, logind refuses for that reason already. The mount is the virtual
        // desktop's own.
        QCOMPARE(mount(qPrintable(states.fileName()), "/sys/power/state", nullptr, MS_BIND, nullptr), 0);
        const QString permitted = errorOf(callLogind(u"Suspend"_s, {false}));
        QCOMPARE(permitted, u"org.freedesktop.DBus.Error.IOError"_s);

        QString withLock;
        {
            const QDBusReply<QDBusUnixFileDescriptor> lock
                = callLogind(u"Inhibit"_s, {u"sleep"_s, u"Tarvik"_s, u"test"_s, u"block"_s});
            QVERIFY2(lock.isValid(), qPrintable(lock.error().message()));
            QCOMPARE(ownInhibitors(), QStringList{u"sleep Tarvik block"_s});
            withLock = errorOf(callLogind(u"Suspend"_s, {false}));
        }
        QCOMPARE(umount("/sys/power/state"), 0);

        const int version = logindVersion();
        QVERIFY(version > 0);
        const DesktopFacts lxqt{.logind = true, .lxqtSession = true, .systemdVersion = version};
        const bool isAssumedToStop = DesktopHoldRules::againstSystemSleep(lxqt).contains(DesktopHold::logindSleep);
        QCOMPARE(withLock, isAssumedToStop ? u"org.freedesktop.DBus.Error.AccessDenied"_s : permitted);
    }

    void logindListsItOnceAfterItsRestart()
    {
        auto assertion = m_assertions.create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(ownInhibitors(), QStringList{u"idle Tarvik block"_s});
        QTRY_VERIFY(m_assertions.holds().constFirst().effective);

        const uint pid = m_bus.interface()->servicePid(logindName);
        const QString program = logindProgram();
        QVERIFY(!program.isEmpty());
        QCOMPARE(kill(static_cast<pid_t>(pid), SIGKILL), 0);
        QTRY_VERIFY(!m_assertions.holds().constFirst().effective);
        QCOMPARE(assertion->failure(), std::nullopt);

        QVERIFY(QProcess::startDetached(program));
        QTRY_VERIFY_WITH_TIMEOUT(m_assertions.holds().constFirst().effective, 15000);
        QVERIFY(m_bus.interface()->servicePid(logindName).value() != pid);
        QTRY_COMPARE(ownInhibitors(), QStringList{u"idle Tarvik block"_s});
        assertion.reset();
        QTRY_COMPARE(ownInhibitors(), QStringList());
    }

private:
    QDBusMessage callLogind(const QString& method, const QVariantList& arguments)
    {
        auto call = QDBusMessage::createMethodCall(
            logindName, u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s, method);
        call.setArguments(arguments);
        return m_bus.call(call);
    }

    static QString errorOf(const QDBusMessage& answer)
    {
        return answer.type() == QDBusMessage::ErrorMessage ? answer.errorName() : u"none"_s;
    }

    QString logindProgram()
    {
        return QFile::symLinkTarget(u"/proc/%1/exe"_s.arg(m_bus.interface()->servicePid(logindName).value()));
    }

    /// Of "systemd 257 (257.13-1~deb13u1)".
    int logindVersion()
    {
        QProcess program;
        program.start(logindProgram(), {u"--version"_s});
        if (!program.waitForFinished())
            return 0;
        return SystemdVersion::parse(QString::fromLatin1(program.readLine()).section(u' ', 1));
    }

    /// "what who mode" of each inhibitor that logind lists for this process.
    QStringList ownInhibitors()
    {
        const auto list = LogindInhibitors::listIn(m_bus.call(LogindInhibitors::list()));
        if (!list)
            return {u"no list"_s};
        QStringList own;
        for (const LogindInhibitor& inhibitor : *list) {
            if (inhibitor.process == static_cast<uint>(getpid()))
                own.append(
                    inhibitor.what.join(u':') + u' ' + inhibitor.who + (inhibitor.blocks ? u" block"_s : u" delay"_s));
        }
        return own;
    }

    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SystemBus, u"observer"_s);
    FakeClock m_clock;
    DesktopPowerAssertions m_assertions{QDBusConnection::connectToBus(QDBusConnection::SystemBus, u"subject"_s),
        QDBusConnection(u"nowhere"_s),
        {},
        nullptr,
        m_clock};
};

QTEST_GUILESS_MAIN(RealLogindTest)
#include "RealLogindTest.moc"
