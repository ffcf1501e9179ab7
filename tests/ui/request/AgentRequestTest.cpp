// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/request/AgentRequest.h"

#include "fakes/FakeWebService.h"
#include "support/TestSupport.h"

#include <QElapsedTimer>
#include <QSignalSpy>

#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Manner = FakeWebService::Manner;
using Case = AgentRequest::Failure::Case;

const QString nothingSaid = u"Couldn't send that — try again in a moment."_s;
const QString tooMany = u"You've sent a few already — try again tomorrow."_s;
const QString unreachable = u"Couldn't reach the server — check your internet connection and try again."_s;
const QString late = u"The server didn't answer — try again in a moment."_s;

/// With simple quotation marks for double ones.
QByteArray json(QByteArray text)
{
    return text.replace('\'', '"');
}

QByteArray error(const QString& text)
{
    return json("{'error':'") + text.toUtf8() + json("'}");
}

} // namespace

class AgentRequestTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_service.emplace();
        m_request.emplace(m_service->address());
    }

    void cleanup()
    {
        // What still comes from there would be waited for.
        m_service->close();
        m_request.reset();
        m_service.reset();
    }

    void aRequestIsAPostOfCompactJsonAndNothingElse()
    {
        m_service->answer(200, "");
        QCOMPARE(outcome(u"My Agent"_s, u"my-agent --now"_s), QString());
        QCOMPARE(m_service->requests.size(), 1);
        const FakeWebService::Request request = m_service->requests.constFirst();
        QCOMPARE(request.line, "POST /agent-request HTTP/1.1");
        QCOMPARE(request.body, json("{'name':'My Agent','note':'my-agent --now'}"));
        const QMap<QByteArray, QByteArray> headers{
            {"accept-encoding", "identity"},
            {"accept-language", "en,*"},
            {"connection", "close"},
            {"content-length", QByteArray::number(request.body.size())},
            {"content-type", "application/json"},
            {"host", "127.0.0.1:" + QByteArray::number(m_service->port())},
            {"user-agent", "Tarvik"},
        };
        QCOMPARE(request.headers, headers);
    }

    void theTextsAreSentWithoutTheWhiteSpaceAroundThem_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("note");
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("an empty note") << u"Agent"_s << QString() << json("{'name':'Agent','note':''}");
        QTest::newRow("a note of blanks") << u"Agent"_s << u" \n"_s << json("{'name':'Agent','note':''}");
        QTest::newRow("blanks and line breaks")
            << u"\r\n\t My  Agent \u00a0\u2028"_s << u"\n run\tit "_s << json("{'name':'My  Agent','note':'run\\tit'}");
        QTest::newRow("quotes") << u"\"}\\"_s << u"{\"a\":[1]}"_s << json("{'name':'\\'}\\\\','note':'{\\'a\\':[1]}'}");
        QTest::newRow("beyond ASCII") << u"Ägent 智 🤖"_s << u"é"_s
                                      << QByteArray("{\"name\":\"Ägent 智 🤖\",\"note\":\"é\"}");
    }
    void theTextsAreSentWithoutTheWhiteSpaceAroundThem()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, note);
        QFETCH(const QByteArray, body);
        m_service->answer(200, "");
        QCOMPARE(outcome(name, note), QString());
        QCOMPARE(m_service->requests.constFirst().body, body);
    }

    void thePathFollowsThatOfTheAddress_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("none") << u""_s << QByteArray("POST /agent-request HTTP/1.1");
        QTest::newRow("the root") << u"/"_s << QByteArray("POST /agent-request HTTP/1.1");
        QTest::newRow("one") << u"/api"_s << QByteArray("POST /api/agent-request HTTP/1.1");
        QTest::newRow("one with a slash") << u"/api/v1/"_s << QByteArray("POST /api/v1/agent-request HTTP/1.1");
    }
    void thePathFollowsThatOfTheAddress()
    {
        QFETCH(const QString, path);
        QFETCH(const QByteArray, line);
        m_request.emplace(QUrl(m_service->address().toString() + path));
        m_service->answer(200, "");
        QCOMPARE(outcome(), QString());
        QCOMPARE(m_service->requests.constFirst().line, line);
    }

    void anAnswerIsUnderstood_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("expected");
        QTest::newRow("200") << 200 << QByteArray("{}") << QString();
        QTest::newRow("200 with an error") << 200 << error(u"No"_s) << QString();
        QTest::newRow("201") << 201 << QByteArray() << QString();
        QTest::newRow("429") << 429 << QByteArray() << tooMany;
        QTest::newRow("429 with an error") << 429 << error(u"Enough"_s) << tooMany;
        QTest::newRow("500 with a text") << 500 << error(u"The database is having a rest."_s)
                                         << u"The database is having a rest."_s;
        QTest::newRow("500 with more than a text") << 500 << json("{'code':7,'error':'No.','name':null}") << u"No."_s;
        QTest::newRow("500 without a body") << 500 << QByteArray() << nothingSaid;
        QTest::newRow("500 with garbage") << 500 << QByteArray("\0\xff\xfe<html>", 9) << nothingSaid;
        QTest::newRow("500 with half an object") << 500 << json("{'error':'No") << nothingSaid;
        QTest::newRow("500 with a number") << 500 << json("{'error':500}") << nothingSaid;
        QTest::newRow("500 with an object") << 500 << json("{'error':{'error':'No'}}") << nothingSaid;
        QTest::newRow("500 with null") << 500 << json("{'error':null}") << nothingSaid;
        QTest::newRow("500 with an empty text") << 500 << error(u""_s) << nothingSaid;
        QTest::newRow("500 with blanks") << 500 << error(u"  "_s) << nothingSaid;
        QTest::newRow("500 with an array") << 500 << json("[{'error':'No'}]") << nothingSaid;
        QTest::newRow("500 with a string") << 500 << json("'No'") << nothingSaid;
        QTest::newRow("500 with a text elsewhere") << 500 << json("{'message':'No'}") << nothingSaid;
        QTest::newRow("500 with a thousand levels") << 500 << "{\"error\":" + QByteArray(100'000, '[') << nothingSaid;
        QTest::newRow("500 with bytes that are no UTF-8") << 500 << QByteArray("{\"error\":\"N\xff\"}") << nothingSaid;
        QTest::newRow("500 that is too long") << 500 << error(QString(JsonPost::longestBody, u'n')) << nothingSaid;
        QTest::newRow("204") << 204 << QByteArray() << nothingSaid;
        QTest::newRow("400") << 400 << error(u"A name, please."_s) << u"A name, please."_s;
        QTest::newRow("401") << 401 << error(u"Who is there?"_s) << u"Who is there?"_s;
        QTest::newRow("404") << 404 << QByteArray("<h1>Not found</h1>") << nothingSaid;
        QTest::newRow("503") << 503 << error(u"Later."_s) << u"Later."_s;
        QTest::newRow("999") << 999 << QByteArray() << nothingSaid;
    }
    void anAnswerIsUnderstood()
    {
        QFETCH(const int, status);
        QFETCH(const QByteArray, body);
        QFETCH(const QString, expected);
        m_service->answer(status, body);
        if (status != 200 && status != 201 && status != 429)
            expectLog(QtCriticalMsg, u"^agent request failed: %1$"_s.arg(status));
        QCOMPARE(outcome(), expected);
        QCOMPARE(m_service->requests.size(), 1);
    }

    void aFailureTellsItsCase()
    {
        QCOMPARE(AgentRequest::failureOf(200, error(u"No"_s)), std::nullopt);
        QCOMPARE(AgentRequest::failureOf(201, {}), std::nullopt);
        QCOMPARE(AgentRequest::failureOf(429, error(u"No"_s)), (AgentRequest::Failure{Case::rateLimited}));
        QCOMPARE(AgentRequest::failureOf(500, error(u"No"_s)), (AgentRequest::Failure{Case::server, u"No"_s}));
        QCOMPARE(AgentRequest::failureOf(500, {}), (AgentRequest::Failure{Case::server}));
    }

    void whatTheServerSaysSteersNothing_data()
    {
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("shown");
        QTest::newRow("markup") << u"<b>No</b> &amp; <img src='http://example.org'>"_s
                                << u"<b>No</b> &amp; <img src='http://example.org'>"_s;
        QTest::newRow("lines") << u"\\n No\\r\\nway\\t! \\u2028"_s << u"No  way !"_s;
        QTest::newRow("controls") << u"No\\u0007\\u001b[31m\\u0000!"_s << u"No??[31m?!"_s;
        QTest::newRow("directions") << u"No\\u202e yaw\\u2066 \\u200f!"_s << u"No? yaw? ?!"_s;
        QTest::newRow("half a character") << u"No\\ud83d!"_s << u"No?!"_s;
        QTest::newRow("as long as can be") << QString(300, u'n') << QString(300, u'n');
        QTest::newRow("longer") << QString(60'000, u'n') << QString(299, u'n') + u'…';
        QTest::newRow("longer, cut in a character") << QString(298, u'n') + u"🤖🤖"_s << QString(298, u'n') + u'…';
    }
    void whatTheServerSaysSteersNothing()
    {
        QFETCH(const QString, message);
        QFETCH(const QString, shown);
        QCOMPARE(AgentRequest::failureOf(500, error(message)).value().description(), shown);
    }

    void aBodyInChunksIsUnderstood()
    {
        m_service->answer(Manner::atOnce,
            "HTTP/1.1 500 No\r\nTransfer-Encoding: chunked\r\n\r\n9\r\n{\"error\":\r\n6\r\n\"No.\"}\r\n0\r\n\r\n");
        expectLog(QtCriticalMsg, u"^agent request failed: 500$"_s);
        QCOMPARE(outcome(), u"No."_s);
    }

    void aPackedBodyIsNotUnpacked()
    {
        m_service->answer(500,
            QByteArray::fromHex("1f8b0800000000000003ab562a4bcc294d55b2522a2d4e2d52aa0500"),
            {"Content-Encoding: gzip"});
        expectLog(QtCriticalMsg, u"^agent request failed: 500$"_s);
        QCOMPARE(outcome(), nothingSaid);
    }

    void aSlowAnswerIsWaitedFor()
    {
        m_service->answer(Manner::byteByByte, "HTTP/1.1 500 No\r\nContent-Length: 15\r\n\r\n{\"error\":\"No.\"}");
        expectLog(QtCriticalMsg, u"^agent request failed: 500$"_s);
        QCOMPARE(outcome(), u"No."_s);
    }

    void aRedirectionIsNotFollowed_data()
    {
        QTest::addColumn<int>("status");
        for (const int status : {301, 302, 303, 307, 308})
            QTest::newRow(qPrintable(QString::number(status))) << status;
    }
    void aRedirectionIsNotFollowed()
    {
        QFETCH(const int, status);
        FakeWebService other;
        other.answer(200, "");
        for (const FakeWebService* to : {&other, &*m_service}) {
            m_service->requests.clear();
            m_service->answer(status, "", {"Location: " + to->address().toEncoded() + "/agent-request"});
            expectLog(QtCriticalMsg, u"^agent request failed: %1$"_s.arg(status));
            QCOMPARE(outcome(), nothingSaid);
            QCOMPARE(m_service->requests.size(), 1);
            QVERIFY(other.requests.isEmpty());
        }
    }

    void cookiesAreNotKept()
    {
        m_service->answer(200, "", {"Set-Cookie: who=you; Max-Age=1000"});
        QCOMPARE(outcome(), QString());
        QCOMPARE(outcome(), QString());
        QCOMPARE(m_service->requests.size(), 2);
        QVERIFY(!m_service->requests.constLast().headers.contains("cookie"));
    }

    void withoutAnAnswerTheServerCannotBeReached_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("half a head") << QByteArray("HTTP/1.1 200 O");
        QTest::newRow("no HTTP") << QByteArray("220 mail.example.org ESMTP\r\n\r\n");
        QTest::newRow("garbage") << QByteArray("\0\x16\x03\xff\r\n\r\n\n\n", 10);
    }
    void withoutAnAnswerTheServerCannotBeReached()
    {
        QFETCH(const QByteArray, answer);
        m_service->answer(Manner::hangUp, answer);
        expectLog(QtCriticalMsg, u"^agent request got no answer: ."_s);
        QCOMPARE(outcome(), unreachable);
        // The service may have taken it all the same.
        QCOMPARE(m_service->requests.size(), 1);
    }

    void aClosedDoorIsToldAtOnce()
    {
        m_service->close();
        expectLog(QtCriticalMsg, u"^agent request got no answer: Connection refused$"_s);
        QCOMPARE(outcome(), unreachable);
    }

    void aFailedRequestCanBeSentAgain()
    {
        m_service->close();
        expectLog(QtCriticalMsg, u"^agent request got no answer: ."_s);
        QCOMPARE(outcome(), unreachable);
        m_service->open();
        m_service->answer(201, "");
        QCOMPARE(outcome(), QString());
    }

    void everyRequestHasAConnectionOfItsOwn()
    {
        m_service->answer(200, "");
        for (int count = 1; count <= 20; ++count) {
            QCOMPARE(outcome(), QString());
            QCOMPARE(m_service->requests.size(), count);
            // It has ended by the time of the next one, whether that is known yet or not.
            m_service->hangUp();
        }
    }

    void anAnswerOfWhichTheEndIsLostCountsByItsStatus()
    {
        m_service->answer(Manner::hangUp, "HTTP/1.1 500 No\r\nContent-Length: 100\r\n\r\n{\"error\":\"N");
        expectLog(QtCriticalMsg, u"^agent request failed: 500$"_s);
        QCOMPARE(outcome(), nothingSaid);
    }

    void nobodyWaitsLongerThanFifteenSeconds() { QCOMPARE(AgentRequest::defaultLimit, 15s); }

    void theTimeIsLimited_data()
    {
        QTest::addColumn<Manner>("manner");
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<QString>("expected");
        QTest::newRow("silence") << Manner::unfinished << QByteArray() << late;
        QTest::newRow("half a head") << Manner::unfinished << QByteArray("HTTP/1.1 200 OK\r\nContent-") << late;
        QTest::newRow("a head byte by byte")
            << Manner::byteByByte << "HTTP/1.1 200 OK\r\nX-Long: " + QByteArray(100'000, 'x') << late;
        QTest::newRow("an endless head") << Manner::endless << QByteArray("HTTP/1.1 500 N") << late;
        QTest::newRow("half a body") << Manner::unfinished
                                     << QByteArray("HTTP/1.1 500 No\r\nContent-Length: 9\r\n\r\n{") << nothingSaid;
        QTest::newRow("a body byte by byte")
            << Manner::byteByByte << "HTTP/1.1 500 No\r\n\r\n{\"error\":\"" + QByteArray(100'000, 'x') << nothingSaid;
    }
    void theTimeIsLimited()
    {
        QFETCH(const Manner, manner);
        QFETCH(const QByteArray, answer);
        QFETCH(const QString, expected);
        constexpr auto limit = 400ms;
        m_request.emplace(m_service->address(), limit);
        m_service->answer(manner, answer);
        expectLog(QtCriticalMsg,
            expected == late ? u"^agent request got no answer: No answer in time$"_s
                             : u"^agent request failed: 500$"_s);
        QElapsedTimer time;
        time.start();
        QCOMPARE(outcome(), expected);
        QVERIFY(time.elapsed() >= limit.count());
        QVERIFY(!m_request->isSending());
    }

    void anEndlessBodyIsNotReadToItsEnd()
    {
        m_service->answer(Manner::endless, "HTTP/1.1 500 No\r\n\r\n{\"error\":\"n");
        expectLog(QtCriticalMsg, u"^agent request failed: 500$"_s);
        QElapsedTimer time;
        time.start();
        QCOMPARE(outcome(), nothingSaid);
        QVERIFY(time.elapsed() < 1000 * AgentRequest::defaultLimit.count());
        QTRY_VERIFY(!m_service->isConnected());
    }

    void oneIsSentAtATime()
    {
        QSignalSpy sending(&*m_request, &AgentRequest::isSendingChanged);
        m_request->send(u"One"_s, {});
        QVERIFY(m_request->isSending());
        m_request->send(u"Two"_s, {});
        QTRY_COMPARE(m_service->requests.size(), 1);
        QCOMPARE(sending.size(), 1);
        m_service->answer(200, "");
        m_request->cancel();
        QCOMPARE(sending.size(), 2);
        QCOMPARE(outcome(u"Three"_s), QString());
        QCOMPARE(m_service->requests.size(), 2);
        QCOMPARE(m_service->requests.constLast().body, json("{'name':'Three','note':''}"));
        QCOMPARE(sending.size(), 4);
    }

    void nothingIsToldOfACancelledRequest()
    {
        QSignalSpy sent(&*m_request, &AgentRequest::sent);
        QSignalSpy failed(&*m_request, &AgentRequest::failed);
        m_request->send(u"Agent"_s, {});
        QTRY_COMPARE(m_service->requests.size(), 1);
        QVERIFY(m_service->isConnected());
        m_request->cancel();
        QVERIFY(!m_request->isSending());
        QTRY_VERIFY(!m_service->isConnected());
        QCOMPARE(sent.size() + failed.size(), 0);
    }

    void itsEndTakesTheRequestBack()
    {
        m_request->send(u"Agent"_s, {});
        QTRY_COMPARE(m_service->requests.size(), 1);
        m_request.reset();
        QTRY_VERIFY(!m_service->isConnected());
    }

    void withoutAnAddressNothingIsSent_data()
    {
        QTest::addColumn<QUrl>("address");
        QTest::newRow("none") << QUrl();
        QTest::newRow("no host") << QUrl(u"https:///api"_s);
        QTest::newRow("no address") << QUrl(u"https://["_s);
    }
    void withoutAnAddressNothingIsSent()
    {
        QFETCH(const QUrl, address);
        m_request.emplace(address);
        QVERIFY(!m_request->canSend());
        QCOMPARE(outcome(), u"This copy of Tarvik can't send requests."_s);
        QVERIFY(!m_request->isSending());
    }

private:
    /// What the user is told when it has failed; nothing when it has been taken.
    QString outcome(const QString& name = u"Agent"_s, const QString& note = {})
    {
        QSignalSpy sent(&*m_request, &AgentRequest::sent);
        QSignalSpy failed(&*m_request, &AgentRequest::failed);
        m_request->send(name, note);
        if (!QTest::qWaitFor([&] { return sent.size() + failed.size() > 0; }, patience))
            return u"Nothing has come of it."_s;
        return failed.isEmpty() ? QString() : failed.takeFirst().constFirst().toString();
    }

    std::optional<FakeWebService> m_service;
    std::optional<AgentRequest> m_request;
};

QTEST_GUILESS_MAIN(AgentRequestTest)
#include "AgentRequestTest.moc"
