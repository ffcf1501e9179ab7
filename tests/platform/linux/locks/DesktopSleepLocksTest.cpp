// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/locks/DesktopSleepLocks.h"

#include "dbus/DBusCall.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeDBusService.h"
#include "fakes/FakeLogind.h"
#include "support/TestSupport.h"

#include <QDBusMetaType>

#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using SleepLockEffect::idleDisplay;
using SleepLockEffect::idleSleep;

namespace {

/// A row of PowerDevil's list.
struct WhoAndWhy {
    QString who;
    QString why;
};

QDBusArgument& operator<<(QDBusArgument& argument, const WhoAndWhy& row)
{
    argument.beginStructure();
    argument << row.who << row.why;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, WhoAndWhy&)
{
    return argument;
}

} // namespace

class DesktopSleepLocksTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qDBusRegisterMetaType<WhoAndWhy>();
        qDBusRegisterMetaType<QList<WhoAndWhy>>();
        qDBusRegisterMetaType<QList<QDBusObjectPath>>();
    }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_processes.clear();
        m_desktop = {.processes = [this] { return m_processes; }};
        m_logind.emplace(m_services);
        m_logind->properties.insert(u"IdleAction"_s, u"ignore"_s);
        m_systemd.emplace(m_services, u"org.freedesktop.systemd1"_s, u"/org/freedesktop/systemd1"_s);
        m_systemd->handler = [](const QDBusMessage& call) {
            return call.createReply(QVariant::fromValue(QDBusVariant(u"257.13-1"_s)));
        };
    }

    void cleanup()
    {
        m_sessionManager.reset();
        m_kde.reset();
        m_xfce.reset();
        m_logind.reset();
        m_systemd.reset();
    }

    void withoutAnyServiceThereAreNoLocks() { QCOMPARE(list(), SleepLockList{}); }

    void withoutABusThereAreNoLocks()
    {
        FakeClock clock;
        const QDBusConnection nowhere(u"nowhere"_s);
        DesktopSleepLocks locks(nowhere, nowhere, nobody, m_desktop, clock);
        std::optional<SleepLockList> answer;
        locks.list([&](const SleepLockList& list) { answer = list; });
        QVERIFY(!answer);
        clock.advance(Seconds::zero());
        QCOMPARE(answer, SleepLockList{});
    }

    void logindsLocksAreListedWithWhatTheyStopOnThisSystemd()
    {
        startLogind({{u"sleep"_s, getuid(), unknownProcess}, {u"idle"_s, getuid(), unknownProcess}});
        const QList<SleepLock> locks = list().locks;
        QCOMPARE(locks.size(), 2);
        QCOMPARE(locks[0].service, u"logind"_s);
        QCOMPARE(locks[0].reason, u"because"_s);
        QCOMPARE(locks[0].effects, SleepLockEffect::sleep | idleSleep);
        QCOMPARE(locks[1].effects, SleepLockEffects());
    }

    void anIdleDaemonStandsStillForIdleLocks()
    {
        startLogind({{u"idle"_s, getuid(), unknownProcess}});
        for (const QString& daemon : {u"swayidle"_s, u"hypridle"_s}) {
            m_processes = {u"bash"_s, daemon};
            QCOMPARE(list().locks.constFirst().effects, idleSleep | idleDisplay);
        }
        m_processes = {u"xautolock"_s};
        QCOMPARE(list().locks.constFirst().effects, SleepLockEffects());
    }

    void logindsOwnIdleActionCounts()
    {
        m_logind->properties.insert(u"IdleAction"_s, u"suspend"_s);
        startLogind({{u"idle"_s, getuid(), unknownProcess}});
        QCOMPARE(list().locks.constFirst().effects, SleepLockEffects(idleSleep));
        m_logind->properties.insert(u"IdleAction"_s, u"lock"_s);
        QCOMPARE(list().locks.constFirst().effects, SleepLockEffects());
    }

    void theSessionManagersInhibitorsAreListed()
    {
        startLogind({});
        startSessionManager();
        const SleepLock expected{.program = u"Player"_s,
            .reason = u"music"_s,
            .service = u"session manager"_s,
            .effects = idleSleep,
            .process = unknownProcess,
            .isOurs = false};
        QCOMPARE(list().locks, QList{expected});
    }

    void itsLockOfLogindIsNotListedBesideThem()
    {
        startSessionManager();
        startLogind({{u"sleep"_s, getuid(), static_cast<quint32>(getpid())}});
        const QList<SleepLock> locks = list().locks;
        QCOMPARE(locks.size(), 1);
        QCOMPARE(locks.constFirst().program, u"Player"_s);
        QCOMPARE(locks.constFirst().effects, SleepLockEffect::sleep | idleSleep);
    }

    void powerDevilsInhibitionsAreListed_data()
    {
        QTest::addColumn<QStringList>("programs");
        QTest::addColumn<bool>("keepsDisplayOn");
        QTest::addColumn<QList<SleepLockEffects>>("effects");
        QTest::newRow("none") << QStringList() << false << QList<SleepLockEffects>();
        QTest::newRow("session") << QStringList{u"A"_s} << false << QList<SleepLockEffects>{idleSleep};
        QTest::newRow("display") << QStringList{u"A"_s} << true << QList<SleepLockEffects>{idleSleep | idleDisplay};
        QTest::newRow("one of two keeps the display on")
            << QStringList{u"A"_s, u"B"_s} << true << QList<SleepLockEffects>{idleSleep, idleSleep};
    }

    void powerDevilsInhibitionsAreListed()
    {
        QFETCH(QStringList, programs);
        QFETCH(bool, keepsDisplayOn);
        QFETCH(QList<SleepLockEffects>, effects);
        m_kde.emplace(m_services,
            u"org.kde.Solid.PowerManagement"_s,
            u"/org/kde/Solid/PowerManagement/PolicyAgent"_s,
            QDBusConnection::SingleNode);
        m_kde->handler = [=](const QDBusMessage& call) {
            if (call.member() == u"HasInhibition"_s) {
                const bool isOfDisplay = call.arguments().constFirst() == 4U;
                return call.createReply(isOfDisplay ? keepsDisplayOn : !programs.isEmpty());
            }
            QList<WhoAndWhy> rows;
            for (const QString& program : programs)
                rows.append({program, u"busy"_s});
            return call.createReply(QVariant::fromValue(rows));
        };
        QVERIFY(m_kde->appear());
        QList<SleepLockEffects> found;
        for (const SleepLock& lock : list().locks) {
            QCOMPARE(lock.service, u"KDE power management"_s);
            QCOMPARE(lock.reason, u"busy"_s);
            found.append(lock.effects);
        }
        QCOMPARE(found, effects);
    }

    void xfcesInhibitorsAreListedWithoutTheirReasons()
    {
        QVERIFY(m_services.registerService(u"org.xfce.PowerManager"_s));
        m_xfce.emplace(m_services, u"org.freedesktop.PowerManagement"_s, u"/org/freedesktop/PowerManagement/Inhibit"_s);
        m_xfce->handler = [](const QDBusMessage& call) { return call.createReply(QStringList{u"/usr/bin/player"_s}); };
        QVERIFY(m_xfce->appear());
        const SleepLock expected{.program = u"player"_s,
            .reason = {},
            .service = u"XFCE power management"_s,
            .effects = idleSleep | idleDisplay,
            .process = {},
            .isOurs = false};
        QCOMPARE(list().locks, QList{expected});
        QVERIFY(m_services.unregisterService(u"org.xfce.PowerManager"_s));
    }

    void whoKeepsItsLocksToItselfIsNamed()
    {
        m_desktop.isWayland = true;
        QVERIFY(m_services.registerService(u"org.freedesktop.ScreenSaver"_s));
        QCOMPARE(list().silentServices, (QStringList{u"screen saver"_s, u"Wayland compositor"_s}));
        // GNOME's screen saver and compositor hand everything on to the session manager.
        QVERIFY(m_services.registerService(u"org.gnome.SettingsDaemon.Power"_s));
        QCOMPARE(list().silentServices, QStringList());
        QVERIFY(m_services.unregisterService(u"org.gnome.SettingsDaemon.Power"_s));
        QVERIFY(m_services.unregisterService(u"org.freedesktop.ScreenSaver"_s));
    }

    void whoDoesNotAnswerIsNotWaitedFor()
    {
        m_logind->answerLater(FakeLogind::listInhibitors);
        startLogind({});
        startSessionManager();
        DesktopSleepLocks locks(m_client, m_client, nobody, m_desktop, m_clock);
        std::optional<SleepLockList> answer;
        locks.list([&](const SleepLockList& list) { answer = list; });
        QTRY_VERIFY(m_logind->isWaiting() && m_isProcessTold);
        // The session manager's answers come in the order of the questions.
        bool isAnswered = false;
        const auto question = QDBusMessage::createMethodCall(
            m_sessionManager->service(), u"/org/gnome/SessionManager"_s, u"org.gnome.SessionManager"_s, u"Setenv"_s);
        const DBusCall last = callAsync(m_client, question, [&](const QDBusMessage&) { isAnswered = true; });
        QTRY_VERIFY(isAnswered);
        QVERIFY(!answer);
        m_clock.advance(Seconds(2.5));
        QVERIFY(answer);
        QCOMPARE(answer->silentServices, QStringList{u"logind"_s});
        QCOMPARE(answer->locks.size(), 1);
    }

    void whoAsksMeanwhileGetsTheSameAnswer()
    {
        startLogind({{u"sleep"_s, getuid(), unknownProcess}});
        DesktopSleepLocks locks(m_client, m_client, nobody, m_desktop, m_clock);
        int answers = 0;
        locks.list([&](const SleepLockList&) { ++answers; });
        locks.list([&](const SleepLockList&) { ++answers; });
        QTRY_COMPARE(answers, 2);
        QCOMPARE(m_logind->questions.count(FakeLogind::listInhibitors), 1);
    }

    void nobodyIsToldAfterTheEnd()
    {
        m_logind->answerLater(FakeLogind::listInhibitors);
        startLogind({});
        bool isTold = false;
        {
            DesktopSleepLocks locks(m_client, m_client, nobody, m_desktop, m_clock);
            locks.list([&](const SleepLockList&) { isTold = true; });
            QTRY_VERIFY(m_logind->isWaiting());
        }
        m_logind->answerNow();
        QCOMPARE(m_clock.pending(), 0U);
        list();
        QVERIFY(!isTold);
    }

private:
    static constexpr quint32 unknownProcess = 4'000'000'000;

    static std::optional<QString> nobody(const QStringList&) { return std::nullopt; }

    void startLogind(const QList<FakeInhibitorRow>& inhibitors)
    {
        m_logind->inhibitors = inhibitors;
        QVERIFY(m_logind->appear());
        QVERIFY(m_systemd->appear());
    }

    /// With an inhibitor against suspend, and one against logout, of a client.
    void startSessionManager()
    {
        m_isProcessTold = false;
        m_sessionManager.emplace(
            m_services, u"org.gnome.SessionManager"_s, u"/org/gnome/SessionManager"_s, QDBusConnection::SubPath);
        m_sessionManager->handler = [this](const QDBusMessage& call) {
            const bool isPlayer = call.path().endsWith("Inhibitor1"_L1);
            if (call.member() == u"GetInhibitors"_s)
                return call.createReply(
                    QVariant::fromValue(QList{QDBusObjectPath(u"/org/gnome/SessionManager/Inhibitor1"_s),
                        QDBusObjectPath(u"/org/gnome/SessionManager/Inhibitor2"_s)}));
            if (call.member() == u"GetAppId"_s)
                return call.createReply(isPlayer ? u"Player"_s : u"Editor"_s);
            if (call.member() == u"GetReason"_s)
                return call.createReply(isPlayer ? u"music"_s : u"unsaved"_s);
            if (call.member() == u"GetFlags"_s)
                return call.createReply(isPlayer ? 4U : 1U);
            if (call.member() == u"GetClientId"_s)
                return call.createReply(
                    QVariant::fromValue(QDBusObjectPath(isPlayer ? u"/org/gnome/SessionManager/Client1"_s : u"/"_s)));
            if (call.member() == u"GetUnixProcessId"_s) {
                m_isProcessTold = true;
                return call.createReply(unknownProcess);
            }
            return call.createErrorReply(QDBusError::UnknownMethod, call.member());
        };
        QVERIFY(m_sessionManager->appear());
    }

    SleepLockList list()
    {
        DesktopSleepLocks locks(m_client, m_client, nobody, m_desktop, m_clock);
        std::optional<SleepLockList> answer;
        locks.list([&](const SleepLockList& list) { answer = list; });
        if (!QTest::qWaitFor([&] { return answer.has_value(); }, patience))
            qWarning("no answer");
        return answer.value_or(SleepLockList{});
    }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
    FakeClock m_clock;
    QStringList m_processes;
    LockReading::Desktop m_desktop;
    std::optional<FakeLogind> m_logind;
    std::optional<FakeDBusService> m_systemd;
    std::optional<FakeDBusService> m_sessionManager;
    std::optional<FakeDBusService> m_kde;
    std::optional<FakeDBusService> m_xfce;
    bool m_isProcessTold = false;
};

QTEST_GUILESS_MAIN(DesktopSleepLocksTest)
#include "DesktopSleepLocksTest.moc"
