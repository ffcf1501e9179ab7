// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/SingleInstance.h"

#include "fakes/FakeDBusService.h"
#include "support/TestSupport.h"

#include <QDBusConnectionInterface>

#include <csignal>
#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class SingleInstanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_start = SingleInstance::Start::byUser;
        m_role.reset();
        m_calls = 0;
    }

    void cleanup()
    {
        m_first.vanish();
        // With the connection goes the name, as soon as the bus has seen that it is closed.
        m_instance.reset();
        QDBusConnection::disconnectFromBus(u"instance"_s);
        QTRY_VERIFY(!QDBusConnection(u"first"_s).interface()->isServiceRegistered(m_first.service()).value());
    }

    void whoFindsTheNameFreeIsTheFirst()
    {
        start();
        QTRY_COMPARE(m_role, SingleInstance::Role::first);
    }

    void whoFindsAnotherTellsItAndIsTheSecond()
    {
        m_first.handler = [this](const QDBusMessage& call) {
            ++m_calls;
            return call.createReply();
        };
        QVERIFY(m_first.appear());
        start();
        QTRY_COMPARE(m_role, SingleInstance::Role::second);
        QCOMPARE(m_calls, 1);
    }

    void atLoginTheFirstIsNotTold()
    {
        m_first.handler = [this](const QDBusMessage& call) {
            ++m_calls;
            return call.createReply();
        };
        QVERIFY(m_first.appear());
        m_start = SingleInstance::Start::atLogin;
        start();
        QTRY_COMPARE(m_role, SingleInstance::Role::second);
        QCOMPARE(m_calls, 0);
    }

    void atLoginTooWhoFindsTheNameFreeIsTheFirst()
    {
        m_start = SingleInstance::Start::atLogin;
        start();
        QTRY_COMPARE(m_role, SingleInstance::Role::first);
    }

    void aFirstThatDoesNotListenYetIsToldAgain()
    {
        m_first.handler = [this](const QDBusMessage& call) {
            return ++m_calls < 3 ? call.createErrorReply(QDBusError::UnknownObject, u"not yet"_s) : call.createReply();
        };
        QVERIFY(m_first.appear());
        start();
        QTRY_COMPARE(m_role, SingleInstance::Role::second);
        QCOMPARE(m_calls, 3);
    }

    void aFirstThatRefusesIsNotAskedAgain()
    {
        m_first.handler = [this](const QDBusMessage& call) {
            ++m_calls;
            return call.createErrorReply(QDBusError::Failed, u"no"_s);
        };
        QVERIFY(m_first.appear());
        start();
        QTRY_COMPARE(m_role, SingleInstance::Role::second);
        QCOMPARE(m_calls, 1);
    }

    void aBusThatStandsStillForSecondsIsWaitedFor()
    {
        m_first.handler = [](const QDBusMessage& call) { return call.createReply(); };
        QVERIFY(m_first.appear());
        const auto bus = static_cast<pid_t>(
            QDBusConnection(u"first"_s).interface()->servicePid(u"org.freedesktop.DBus"_s).value());
        m_instance.emplace(QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"instance"_s));
        QCOMPARE(::kill(bus, SIGSTOP), 0);
        decide();
        const bool isDecided = QTest::qWaitFor([this] { return m_role.has_value(); }, 3000);
        QCOMPARE(::kill(bus, SIGCONT), 0);
        QVERIFY(!isDecided);
        QTRY_COMPARE(m_role, SingleInstance::Role::second);
    }

private:
    void start()
    {
        m_instance.emplace(QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"instance"_s));
        decide();
    }

    void decide()
    {
        m_instance->decide(m_start, [this](SingleInstance::Role role) { m_role = role; });
    }

    FakeDBusService m_first{QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"first"_s),
        u"com.morvanta.Tarvik"_s,
        u"/com/morvanta/Tarvik"_s};
    std::optional<SingleInstance> m_instance;
    SingleInstance::Start m_start = SingleInstance::Start::byUser;
    std::optional<SingleInstance::Role> m_role;
    int m_calls = 0;
};

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "SingleInstanceTest.moc"
