// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
//
// Runs against the system's own logind, in a virtual desktop. There is no systemd: its version is unknown.
#include "fakes/FakeClock.h"
#include "platform/linux/locks/DesktopSleepLocks.h"
#include "support/TestSupport.h"

#include <QProcess>

#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class RealSleepLocksTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY2(qEnvironmentVariableIsSet("TARVIK_DESKTOP"), "Run this inside scripts/desktop."); }

    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void aLockIsListedUntilItIsGivenBack()
    {
        const QList<SleepLock> before = locks();
        QProcess program;
        program.start(u"systemd-inhibit"_s,
            {u"--what=sleep:handle-lid-switch"_s, u"--who=Night backup"_s, u"--why=Disks are busy"_s, u"cat"_s});
        QVERIFY(program.waitForStarted());
        program.write("\n");
        QVERIFY(program.waitForReadyRead());

        QList<SleepLock> during = locks();
        QCOMPARE(during.size(), before.size() + 1);
        during.removeIf([&](const SleepLock& lock) { return before.contains(lock); });
        const SleepLock expected{.program = u"Night backup"_s,
            .reason = u"Disks are busy"_s,
            .service = u"logind"_s,
            .effects = SleepLockEffect::lid,
            .process = program.processId(),
            .isOurs = false};
        QCOMPARE(during, QList{expected});

        program.closeWriteChannel();
        QVERIFY(program.waitForFinished());
        QTRY_COMPARE(locks(), before);
    }

private:
    QList<SleepLock> locks()
    {
        std::optional<SleepLockList> answer;
        m_locks.list([&](const SleepLockList& list) { answer = list; });
        if (!QTest::qWaitFor([&] { return answer.has_value(); }, patience)
            || answer->silentServices.contains(u"logind"_s))
            qWarning("no answer");
        return answer ? answer->locks : QList<SleepLock>();
    }

    FakeClock m_clock;
    DesktopSleepLocks m_locks{QDBusConnection::connectToBus(QDBusConnection::SystemBus, u"system"_s),
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"session"_s),
        [](const QStringList&) { return std::nullopt; },
        LockReading::Desktop{.isWayland = false, .processes = OwnProcesses::names},
        m_clock};
};

QTEST_GUILESS_MAIN(RealSleepLocksTest)
#include "RealSleepLocksTest.moc"
