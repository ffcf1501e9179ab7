// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Connection.h"

#include "fakes/FakeClock.h"
#include "support/TestSupport.h"
#include "support/VirtualXServer.h"

#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

std::uint16_t bellOf(const XClient& client)
{
    const auto cookie = xcb_get_keyboard_control(client.connection());
    const Owned<xcb_get_keyboard_control_reply_t, std::free> reply(
        xcb_get_keyboard_control_reply(client.connection(), cookie, nullptr));
    return reply->bell_pitch;
}

void setBell(const X11Connection& connection, std::uint32_t pitch)
{
    xcb_change_keyboard_control(connection.get(), XCB_KB_BELL_PITCH, &pitch);
}

} // namespace

class X11ConnectionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_told.clear();
        m_server = std::make_unique<VirtualXServer>();
        QVERIFY(m_server->isRunning());
    }

    void cleanup()
    {
        m_connection.reset();
        m_server.reset();
    }

    void nobodyWaitsForTheServer()
    {
        open(m_server->display());
        QVERIFY(!m_connection->isKnown());
        QVERIFY(m_connection->get() == nullptr);
        QTRY_COMPARE(m_told, QStringList{u"connected"_s});
        QVERIFY(m_connection->isKnown());
        QCOMPARE(m_connection->root(), XClient(*m_server).root());
    }

    void aDisplayThatCannotBeReachedIsNotLookedFor()
    {
        for (const char* display : {":65000", "nonsense", ":-1", "/nonexistent"}) {
            m_told.clear();
            open(display);
            QTRY_COMPARE(m_told, QStringList{u"lost"_s});
            QVERIFY(m_connection->isKnown());
            QVERIFY(m_connection->get() == nullptr);
        }
        QCOMPARE(m_clock.pending(), 0U);
    }

    void everybodyGetsTheRepliesToTheirOwnRequests()
    {
        connect();
        QStringList replies;
        const auto await = [&](unsigned int request, const QString& name) {
            return m_connection->await(
                request, [&, name](const void* reply) { replies.append(name + (reply == nullptr ? u'?' : u'!')); });
        };
        const auto focus = await(xcb_get_input_focus(m_connection->get()).sequence, u"focus"_s);
        auto dropped = await(xcb_get_input_focus(m_connection->get()).sequence, u"dropped"_s);
        const auto refused = await(xcb_get_geometry(m_connection->get(), 0).sequence, u"refused"_s);
        const auto geometry = await(xcb_get_geometry(m_connection->get(), m_connection->root()).sequence, u"root"_s);
        dropped = {};
        m_connection->send();
        QTRY_COMPARE(replies, QStringList({u"focus!"_s, u"refused?"_s, u"root!"_s}));
    }

    void aReplyThatComesWhileEventsAreLookedForIsHeard()
    {
        connect();
        // It comes at that very moment now and then.
        constexpr int rounds = 20'000;
        int answers = 0;
        QEventLoop loop;
        QTimer::singleShot(std::chrono::minutes(1), &loop, &QEventLoop::quit);
        Subscription reply;
        const std::function<void()> ask = [&] {
            reply = m_connection->await(xcb_get_input_focus(m_connection->get()).sequence, [&](const void*) {
                if (++answers < rounds)
                    ask();
                else
                    loop.quit();
            });
            m_connection->send();
        };
        ask();
        loop.exec();
        QCOMPARE(answers, rounds);
    }

    void aReceiverMayAskForMore()
    {
        connect();
        bool isAnswered = false;
        Subscription second;
        const auto first = m_connection->await(xcb_get_input_focus(m_connection->get()).sequence, [&](const void*) {
            second = m_connection->await(
                xcb_get_input_focus(m_connection->get()).sequence, [&](const void*) { isAnswered = true; });
        });
        m_connection->send();
        QTRY_VERIFY(isAnswered);
    }

    void anErrorIsToldBeforeALaterReply()
    {
        connect();
        const auto refused = xcb_map_window(m_connection->get(), 0).sequence;
        QStringList order;
        const Subscription errors = m_connection->received.subscribe([&](const xcb_generic_event_t& event) {
            if (event.response_type == 0 && event.full_sequence == refused)
                order.append(u"error"_s);
        });
        const auto reply = m_connection->await(
            xcb_get_input_focus(m_connection->get()).sequence, [&](const void*) { order.append(u"reply"_s); });
        m_connection->send();
        QTRY_COMPARE(order, QStringList({u"error"_s, u"reply"_s}));
    }

    void aServerThatIsBackIsConnectedToEachTime()
    {
        connect();
        for (int crash = 1; crash <= 2; ++crash) {
            lose();
            m_told.clear();
            m_server = std::make_unique<VirtualXServer>();
            QVERIFY(m_server->isRunning());
            QCOMPARE(m_clock.untilNext(), Seconds{1});
            m_clock.advance(Seconds{1});
            QCOMPARE(m_told, QStringList{u"connected"_s});
            QCOMPARE(m_clock.pending(), 0U);
        }
        // What the new server has to say is heard.
        bool isAnswered = false;
        const auto reply = m_connection->await(
            xcb_get_input_focus(m_connection->get()).sequence, [&](const void*) { isAnswered = true; });
        m_connection->send();
        QTRY_VERIFY(isAnswered);
    }

    void aServerThatGoesAnswersNothing()
    {
        connect();
        bool isAnswered = false;
        m_server->kill();
        const auto reply = m_connection->await(
            xcb_get_input_focus(m_connection->get()).sequence, [&](const void*) { isAnswered = true; });
        m_connection->send();
        QTRY_VERIFY(m_connection->get() == nullptr);
        QCOMPARE(m_told, QStringList({u"connected"_s, u"lost"_s}));
        QVERIFY(!isAnswered);
    }

    void aServerThatStaysAwayIsLookedForAtGrowingIntervals()
    {
        connect();
        lose();
        for (const double interval : {1, 2, 4, 8, 16, 32}) {
            QCOMPARE(m_clock.pending(), 1U);
            QCOMPARE(m_clock.untilNext(), Seconds{interval});
            m_clock.advance(Seconds{interval});
            QVERIFY(m_connection->get() == nullptr);
        }
        QCOMPARE(m_clock.pending(), 0U);
        QCOMPARE(m_told, QStringList({u"connected"_s, u"lost"_s}));
    }

    void whoIsDestroyedLooksNoMore()
    {
        connect();
        lose();
        m_connection.reset();
        QCOMPARE(m_clock.pending(), 0U);
    }

    void whatWasAskedLastReachesTheServer()
    {
        connect();
        const XClient other(*m_server);
        const std::uint16_t before = bellOf(other);
        setBell(*m_connection, before + 100U);
        m_connection.reset();
        QCOMPARE(bellOf(other), before + 100);
    }

    void aServerThatHangsDoesNotKeepWhoLeaves()
    {
        connect();
        QCOMPARE(::kill(m_server->processId(), SIGSTOP), 0);
        m_connection.reset();
        QCOMPARE(::kill(m_server->processId(), SIGCONT), 0);
    }

    void onlyADisplayOnThisMachineIsLookedFor_data()
    {
        QTest::addColumn<QByteArray>("display");
        QTest::addColumn<bool>("isOnThisMachine");
        QTest::newRow("number") << QByteArray(":0") << true;
        QTest::newRow("number and screen") << QByteArray(":1.0") << true;
        QTest::newRow("unix") << QByteArray("unix:0") << true;
        QTest::newRow("socket") << QByteArray("/tmp/.X11-unix/X0") << true;
        QTest::newRow("forwarded by ssh") << QByteArray("localhost:10.0") << false;
        QTest::newRow("host") << QByteArray("example.org:0") << false;
    }

    void onlyADisplayOnThisMachineIsLookedFor()
    {
        QFETCH(QByteArray, display);
        QFETCH(bool, isOnThisMachine);
        QCOMPARE(X11Connection::open(display, m_clock)->isOnThisMachine(), isOnThisMachine);
    }

private:
    void open(const QByteArray& display)
    {
        m_connection = X11Connection::open(display, m_clock);
        m_arrivals = m_connection->connected.subscribe([this] { m_told.append(u"connected"_s); });
        m_losses = m_connection->lost.subscribe([this] { m_told.append(u"lost"_s); });
    }

    void connect()
    {
        open(m_server->display());
        QTRY_VERIFY(m_connection->get() != nullptr);
    }

    void lose()
    {
        m_server->kill();
        QTRY_VERIFY(m_connection->get() == nullptr);
    }

    FakeClock m_clock;
    std::unique_ptr<VirtualXServer> m_server;
    std::shared_ptr<X11Connection> m_connection;
    QStringList m_told;
    Subscription m_arrivals;
    Subscription m_losses;
};

QTEST_GUILESS_MAIN(X11ConnectionTest)
#include "X11ConnectionTest.moc"
