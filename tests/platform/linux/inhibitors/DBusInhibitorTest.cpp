// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/inhibitors/DBusInhibitor.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeCookieInhibitor.h"
#include "fakes/FakeLogind.h"
#include "support/TestSupport.h"

#include <cerrno>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using Behaviour = FakeCookieInhibitor::Behaviour;
using Requests = QList<QVariantList>;
using enum Inhibitor::State;

namespace {

const InhibitorRequest forCookie{.service = u"org.gnome.SessionManager"_s,
    .path = u"/org/gnome/SessionManager"_s,
    .interface = u"org.gnome.SessionManager"_s,
    .arguments = {u"Tarvik"_s, 0U, u"Work"_s, 4U},
    .releaseMethod = u"Uninhibit"_s};

const InhibitorRequest forDescriptor{.service = u"org.freedesktop.login1"_s,
    .path = u"/org/freedesktop/login1"_s,
    .interface = u"org.freedesktop.login1.Manager"_s,
    .arguments = {u"idle"_s, u"Tarvik"_s, u"Work"_s, u"block"_s},
    .releaseMethod = {}};

} // namespace

class DBusInhibitorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_sessionManager = std::make_unique<FakeSessionManager>(m_service);
        m_logind = std::make_unique<FakeLogind>(m_service);
        QVERIFY(m_sessionManager->appear() && m_logind->appear());
    }

    void cleanup()
    {
        m_inhibitor.reset();
        QCOMPARE(m_clock.pending(), 0U);
    }

    void itIsAskedForOnlyOnceTheServiceIsThere()
    {
        make(forCookie);
        QCOMPARE(m_inhibitor->service(), u"org.gnome.SessionManager"_s);
        waitForTheBus();
        QCOMPARE(m_sessionManager->requests, Requests());
        QCOMPARE(m_inhibitor->state(), waiting);
        QCOMPARE(m_changes, 0);
        m_inhibitor->setOwner(m_service.baseService());
        QCOMPARE(m_inhibitor->state(), pending);
        QCOMPARE(m_changes, 1);
        QTRY_COMPARE(m_inhibitor->state(), effective);
        QCOMPARE(m_changes, 2);
    }

    void aCookieIsGivenBackAtTheEnd()
    {
        take(forCookie);
        QTRY_COMPARE(m_inhibitor->state(), effective);
        QCOMPARE(m_sessionManager->held(), Requests{forCookie.arguments});
        m_inhibitor.reset();
        QTRY_COMPARE(m_sessionManager->held(), Requests());
    }

    void aDescriptorIsClosedAtTheEnd()
    {
        take(forDescriptor);
        QTRY_COMPARE(m_inhibitor->state(), effective);
        QCOMPARE(m_logind->held(), Requests{forDescriptor.arguments});
        m_inhibitor.reset();
        QTRY_COMPARE(m_logind->held(), Requests());
    }

    void aCookieThatComesTooLateIsGivenBack_data()
    {
        QTest::addColumn<bool>("isDestroyed");
        QTest::newRow("after the end") << true;
        QTest::newRow("after the service has lost its name") << false;
    }

    void aCookieThatComesTooLateIsGivenBack()
    {
        QFETCH(bool, isDestroyed);
        m_sessionManager->behaviour = Behaviour::answerLater;
        take(forCookie);
        QTRY_COMPARE(m_sessionManager->requests.size(), 1);
        if (isDestroyed)
            m_inhibitor.reset();
        else
            m_inhibitor->setOwner({});
        m_sessionManager->grantNow();
        QCOMPARE(m_sessionManager->held().size(), 1);
        QTRY_COMPARE(m_sessionManager->held(), Requests());
        QVERIFY(isDestroyed || m_inhibitor->state() == waiting);
    }

    void aDescriptorThatComesTooLateIsClosed()
    {
        m_logind->answerLater(FakeLogind::inhibit);
        take(forDescriptor);
        QTRY_VERIFY(m_logind->isWaiting());
        m_inhibitor.reset();
        m_logind->answerNow();
        QTRY_COMPARE(m_logind->held(), Requests());
    }

    void aRefusalHasItsReasonUntilTheServiceIsAskedAgain()
    {
        m_logind->failWith(FakeLogind::inhibit, QDBusError::AccessDenied);
        take(forDescriptor);
        QTRY_COMPARE(m_inhibitor->state(), refused);
        QCOMPARE(m_inhibitor->error(), EACCES);
        m_inhibitor->setOwner({});
        QCOMPARE(m_inhibitor->state(), waiting);
        QCOMPARE(m_inhibitor->error(), 0);
        m_logind->failWith(FakeLogind::inhibit, QDBusError::LimitsExceeded);
        m_inhibitor->setOwner(m_service.baseService());
        QTRY_COMPARE(m_inhibitor->state(), refused);
        QCOMPARE(m_inhibitor->error(), ENOBUFS);
    }

    void nonsenseForAnAnswerIsARefusal()
    {
        m_sessionManager->behaviour = Behaviour::talkNonsense;
        m_logind->answerWith(FakeLogind::inhibit, u"nonsense"_s);
        for (const InhibitorRequest& request : {forCookie, forDescriptor}) {
            take(request);
            QTRY_COMPARE(m_inhibitor->state(), refused);
            QCOMPARE(m_inhibitor->error(), EBADMSG);
        }
    }

    void aServiceThatHasItsNameBeforeItsObjectIsAskedAgain()
    {
        m_sessionManager->behaviour = Behaviour::refuse;
        m_sessionManager->refusal = QDBusError::UnknownMethod;
        take(forCookie);
        QTRY_COMPARE(m_clock.pending(), 1U);
        QCOMPARE(m_inhibitor->state(), pending);
        m_sessionManager->behaviour = Behaviour::grant;
        m_clock.advance(DBusInhibitor::retryTime);
        QTRY_COMPARE(m_inhibitor->state(), effective);
        QCOMPARE(m_clock.pending(), 0U);
    }

    void logindIsAskedAgainWhileTheMachineWakes()
    {
        m_logind->failWith(FakeLogind::inhibit, u"org.freedesktop.login1.OperationInProgress"_s);
        take(forDescriptor);
        QTRY_COMPARE(m_clock.pending(), 1U);
        QCOMPARE(m_inhibitor->state(), pending);
        m_logind->recover(FakeLogind::inhibit);
        m_clock.advance(DBusInhibitor::retryTime);
        QTRY_COMPARE(m_inhibitor->state(), effective);
    }

    void aServiceWithoutTheObjectHasRefusedInTheEnd()
    {
        m_sessionManager->behaviour = Behaviour::refuse;
        m_sessionManager->refusal = QDBusError::UnknownObject;
        take(forCookie);
        for (int retry = 0; retry < DBusInhibitor::retries; ++retry) {
            QTRY_COMPARE(m_clock.pending(), 1U);
            QCOMPARE(m_inhibitor->state(), pending);
            m_clock.advance(DBusInhibitor::retryTime);
        }
        QTRY_COMPARE(m_inhibitor->state(), refused);
        QCOMPARE(m_inhibitor->error(), EBADR);
        QCOMPARE(m_sessionManager->requests.size(), 1 + DBusInhibitor::retries);
    }

    void aServiceThatGoesMeanwhileIsNotAskedAgain()
    {
        m_sessionManager->behaviour = Behaviour::refuse;
        m_sessionManager->refusal = QDBusError::UnknownObject;
        take(forCookie);
        QTRY_COMPARE(m_clock.pending(), 1U);
        m_inhibitor->setOwner({});
        QCOMPARE(m_clock.pending(), 0U);
        QCOMPARE(m_inhibitor->state(), waiting);
    }

    void aSuccessorIsAskedAndTheOldCookieForgotten()
    {
        auto other = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"other"_s);
        take(forCookie);
        QTRY_COMPARE(m_inhibitor->state(), effective);
        m_service.unregisterService(m_sessionManager->service());
        {
            FakeSessionManager successor(other);
            QVERIFY(successor.appear());
            m_inhibitor->setOwner(other.baseService());
            QTRY_COMPARE(m_inhibitor->state(), effective);
            QCOMPARE(successor.held(), Requests{forCookie.arguments});
            m_inhibitor.reset();
            QTRY_COMPARE(successor.held(), Requests());
            waitForTheBus();
            QCOMPARE(m_sessionManager->held().size(), 1);
        }
        QDBusConnection::disconnectFromBus(u"other"_s);
    }

    void aCookieGoesBackToTheProcessThatGaveIt()
    {
        auto other = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"other"_s);
        take(forCookie);
        QTRY_COMPARE(m_inhibitor->state(), effective);
        m_service.unregisterService(m_sessionManager->service());
        {
            FakeSessionManager successor(other);
            QVERIFY(successor.appear());
            m_inhibitor.reset();
            QTRY_COMPARE(m_sessionManager->held(), Requests());
        }
        QDBusConnection::disconnectFromBus(u"other"_s);
    }

    void aDescriptorIsKeptUntilTheNextOneIsThere()
    {
        take(forDescriptor);
        QTRY_COMPARE(m_inhibitor->state(), effective);
        m_inhibitor->setOwner({});
        QCOMPARE(m_inhibitor->state(), waiting);
        QCOMPARE(m_logind->held().size(), 1);
        m_logind->answerLater(FakeLogind::inhibit);
        m_inhibitor->setOwner(m_service.baseService());
        QTRY_VERIFY(m_logind->isWaiting());
        QCOMPARE(m_logind->held().size(), 1);
        m_logind->answerNow();
        QTRY_COMPARE(m_inhibitor->state(), effective);
        QTRY_COMPARE(m_logind->held().size(), 1);
        QCOMPARE(m_logind->questions.count(FakeLogind::inhibit), 2);
    }

    void whoeverIsToldMayDestroyIt()
    {
        make(forCookie);
        m_onChange = [this] {
            if (m_inhibitor->state() == effective)
                m_inhibitor.reset();
        };
        m_inhibitor->setOwner(m_service.baseService());
        QTRY_VERIFY(m_inhibitor == nullptr);
        QTRY_COMPARE(m_sessionManager->held(), Requests());
        QCOMPARE(m_sessionManager->requests.size(), 1);
    }

private:
    void make(const InhibitorRequest& request)
    {
        m_changes = 0;
        m_onChange = [] {};
        m_inhibitor = std::make_unique<DBusInhibitor>(m_client, request, m_clock, [this] {
            ++m_changes;
            m_onChange();
        });
    }

    void take(const InhibitorRequest& request)
    {
        make(request);
        m_inhibitor->setOwner(m_service.baseService());
    }

    /// Until everything that the client has sent to the service has arrived.
    void waitForTheBus()
    {
        bool hasArrived = false;
        const auto ping
            = QDBusMessage::createMethodCall(m_service.baseService(), forCookie.path, u"com.example.Test"_s, u"Ping"_s);
        const DBusCall call = callAsync(m_client, ping, [&](const QDBusMessage&) { hasArrived = true; });
        QTRY_VERIFY(hasArrived);
    }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_service = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"service"_s);
    FakeClock m_clock;
    std::unique_ptr<FakeSessionManager> m_sessionManager;
    std::unique_ptr<FakeLogind> m_logind;
    int m_changes = 0;
    std::function<void()> m_onChange;
    std::unique_ptr<DBusInhibitor> m_inhibitor;
};

QTEST_GUILESS_MAIN(DBusInhibitorTest)
#include "DBusInhibitorTest.moc"
