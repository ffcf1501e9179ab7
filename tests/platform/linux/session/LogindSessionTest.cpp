// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/session/LogindSession.h"

#include "fakes/FakeLogind.h"
#include "support/TestSupport.h"

#include <memory>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class LogindSessionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_answers.clear();
        m_logind = std::make_unique<FakeLogind>(m_service);
        QVERIFY(m_logind->appear());
        m_session = std::make_unique<LogindSession>(m_client);
    }

    void cleanup()
    {
        m_session.reset();
        m_logind.reset();
    }

    void theSessionOfTheProcessIsOverWhenItCloses_data() { addStates(); }

    void theSessionOfTheProcessIsOverWhenItCloses()
    {
        QFETCH(QString, state);
        QFETCH(bool, isOver);
        m_logind->sessionOfProcess = u"2"_s;
        m_logind->sessionOfUser = u"3"_s;
        m_logind->states = {{u"2"_s, state}, {u"3"_s, isOver ? u"active"_s : u"closing"_s}};
        expectAnswer(isOver);
        QCOMPARE(m_logind->questions, (QStringList{FakeLogind::processSession, FakeLogind::state}));
    }

    void withoutASessionOfItsOwnTheUsersDisplayCounts_data() { addStates(); }

    void withoutASessionOfItsOwnTheUsersDisplayCounts()
    {
        QFETCH(QString, state);
        QFETCH(bool, isOver);
        m_logind->sessionOfUser = u"c1"_s;
        m_logind->states = {{u"c1"_s, state}};
        expectAnswer(isOver);
    }

    void aUserWithoutADisplayHasLoggedOut()
    {
        m_logind->sessionOfUser = QString();
        expectAnswer(true);
        QCOMPARE(m_logind->questions, (QStringList{FakeLogind::processSession, FakeLogind::user, FakeLogind::display}));
    }

    void aUserWhomLogindDoesNotKnowHasNotLoggedOut() { expectAnswer(false); }

    void withoutLogindItIsNotOver()
    {
        m_logind->vanish();
        expectAnswer(false);
    }

    void withoutABusItIsNotOver()
    {
        m_session = std::make_unique<LogindSession>(QDBusConnection(u"nowhere"_s));
        expectAnswer(false);
    }

    void anErrorIsNotAnEnd_data()
    {
        QTest::addColumn<QString>("question");
        QTest::addColumn<bool>("inSession");
        QTest::newRow("session of the process") << FakeLogind::processSession << true;
        QTest::newRow("user") << FakeLogind::user << false;
        QTest::newRow("display") << FakeLogind::display << false;
        QTest::newRow("state of the process's session") << FakeLogind::state << true;
        QTest::newRow("state of the user's session") << FakeLogind::state << false;
    }

    void anErrorIsNotAnEnd()
    {
        QFETCH(QString, question);
        QFETCH(bool, inSession);
        logOut(inSession);
        m_logind->failWith(question, QDBusError::AccessDenied);
        expectAnswer(false);
        QCOMPARE(m_logind->questions.constLast(), question);
    }

    void anAnswerOfAnotherTypeIsNotAnEnd_data()
    {
        const auto variant
            = [](const auto& value) { return QVariant::fromValue(QDBusVariant(QVariant::fromValue(value))); };
        QTest::addColumn<QString>("question");
        QTest::addColumn<bool>("inSession");
        QTest::addColumn<QVariant>("value");
        const QVariant text(u"/org/freedesktop/login1/session/_2"_s);
        const QVariant path = QVariant::fromValue(QDBusObjectPath(u"/a"_s));
        QTest::newRow("session: text") << FakeLogind::processSession << true << text;
        QTest::newRow("session: number") << FakeLogind::processSession << true << QVariant(2U);
        QTest::newRow("user: text") << FakeLogind::user << false << text;
        QTest::newRow("display: no variant") << FakeLogind::display << false << QVariant(QString());
        QTest::newRow("display: text") << FakeLogind::display << false << variant(QString());
        QTest::newRow("display: path") << FakeLogind::display << false << variant(QDBusObjectPath(u"/"_s));
        QTest::newRow("display: list") << FakeLogind::display << false << variant(QList<QDBusObjectPath>());
        QTest::newRow("state: no variant") << FakeLogind::state << true << QVariant(u"closing"_s);
        QTest::newRow("state: path") << FakeLogind::state << true << variant(QDBusObjectPath(u"/closing"_s));
        QTest::newRow("state: number") << FakeLogind::state << false << variant(0U);
        QTest::newRow("state: path alone") << FakeLogind::state << false << path;
    }

    void anAnswerOfAnotherTypeIsNotAnEnd()
    {
        QFETCH(QString, question);
        QFETCH(bool, inSession);
        QFETCH(QVariant, value);
        logOut(inSession);
        m_logind->answerWith(question, value);
        expectAnswer(false);
        QCOMPARE(m_logind->questions.constLast(), question);
    }

    void aSessionThatIsForgottenMeanwhileIsNotAnEnd()
    {
        m_logind->sessionOfProcess = u"2"_s;
        expectAnswer(false);
    }

    void aLateAnswerCounts_data() { addQuestions(); }

    void aLateAnswerCounts()
    {
        QFETCH(QString, question);
        QFETCH(bool, inSession);
        logOut(inSession);
        m_logind->answerLater(question);
        ask();
        QTRY_VERIFY(m_logind->isWaiting());
        QCoreApplication::processEvents();
        QCOMPARE(m_answers, QList<bool>());
        m_logind->answerNow();
        QTRY_COMPARE(m_answers, QList{true});
    }

    void whoIsDestroyedHearsNothing_data() { addQuestions(); }

    void whoIsDestroyedHearsNothing()
    {
        QFETCH(QString, question);
        QFETCH(bool, inSession);
        logOut(inSession);
        m_logind->answerLater(question);
        ask();
        QTRY_VERIFY(m_logind->isWaiting());
        m_session.reset();
        m_logind->answerNow();
        waitForTheBus();
        QCOMPARE(m_answers, QList<bool>());
    }

    void anEarlierQuestionIsDropped()
    {
        logOut(true);
        m_logind->answerLater(FakeLogind::state);
        ask();
        QTRY_VERIFY(m_logind->isWaiting());
        m_logind->answerLater({});
        ask();
        QTRY_COMPARE(m_answers.size(), 1);
        m_logind->answerNow();
        waitForTheBus();
        QCOMPARE(m_answers, QList{true});
    }

    void theAnswerMayDestroyWhoAsked()
    {
        logOut(true);
        bool isOver = false;
        m_session->askWhetherOver([&](bool answer) {
            isOver = answer;
            m_session.reset();
        });
        QTRY_VERIFY(m_session == nullptr);
        QVERIFY(isOver);
    }

    void eachQuestionIsAskedAnew()
    {
        m_logind->sessionOfProcess = u"2"_s;
        m_logind->states = {{u"2"_s, u"active"_s}};
        expectAnswer(false);
        m_logind->states[u"2"_s] = u"closing"_s;
        expectAnswer(true);
    }

private:
    static void addStates()
    {
        QTest::addColumn<QString>("state");
        QTest::addColumn<bool>("isOver");
        QTest::newRow("opening") << u"opening"_s << false;
        QTest::newRow("online") << u"online"_s << false;
        QTest::newRow("active") << u"active"_s << false;
        QTest::newRow("closing") << u"closing"_s << true;
        QTest::newRow("one of a later release") << u"hibernated"_s << false;
        QTest::newRow("none") << QString() << false;
    }

    static void addQuestions()
    {
        QTest::addColumn<QString>("question");
        QTest::addColumn<bool>("inSession");
        QTest::newRow("session of the process") << FakeLogind::processSession << true;
        QTest::newRow("state of the process's session") << FakeLogind::state << true;
        QTest::newRow("user") << FakeLogind::user << false;
        QTest::newRow("display") << FakeLogind::display << false;
        QTest::newRow("state of the user's session") << FakeLogind::state << false;
    }

    /// All answers together would say that it is over.
    void logOut(bool inSession)
    {
        if (inSession)
            m_logind->sessionOfProcess = u"2"_s;
        m_logind->sessionOfUser = u"2"_s;
        m_logind->states = {{u"2"_s, u"closing"_s}};
    }

    void ask()
    {
        m_session->askWhetherOver([this](bool isOver) { m_answers.append(isOver); });
    }

    void expectAnswer(bool isOver)
    {
        m_answers.clear();
        ask();
        QCOMPARE(m_answers, QList<bool>());
        QTRY_COMPARE(m_answers, QList{isOver});
    }

    /// Until everything that is on its way to the client has arrived.
    void waitForTheBus()
    {
        bool hasArrived = false;
        auto ping = QDBusMessage::createMethodCall(
            u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s, u"com.example.Test"_s, u"Ping"_s);
        const DBusCall call = callAsync(m_client, ping, [&](const QDBusMessage&) { hasArrived = true; });
        QTRY_VERIFY(hasArrived);
    }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_service = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"service"_s);
    std::unique_ptr<FakeLogind> m_logind;
    std::unique_ptr<LogindSession> m_session;
    QList<bool> m_answers;
};

QTEST_GUILESS_MAIN(LogindSessionTest)
#include "LogindSessionTest.moc"
