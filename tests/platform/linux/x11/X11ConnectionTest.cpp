// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Connection.h"

#include "fakes/FakeClock.h"
#include "support/TestSupport.h"
#include "support/VirtualXServer.h"

#include <cstdlib>

using namespace Tarvik;

class X11ConnectionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_returns = 0;
        m_server = std::make_unique<VirtualXServer>();
        QVERIFY(m_server->isRunning());
    }

    void cleanup() { m_server.reset(); }

    void aDisplayThatCannotBeReachedGivesNoneAndIsNotLookedFor()
    {
        for (const char* display : {":65000", "nonsense", ":-1", "/nonexistent"})
            QVERIFY(!X11Connection::open(display, m_clock));
        QCOMPARE(m_clock.pending(), 0U);
    }

    void aServerThatIsBackIsConnectedToEachTime()
    {
        const auto connection = open();
        QCOMPARE(connection->root(), XClient(*m_server).root());
        for (int crash = 1; crash <= 2; ++crash) {
            lose(*connection);
            restartServer();
            QCOMPARE(m_clock.untilNext(), Seconds{1});
            m_clock.advance(Seconds{1});
            QCOMPARE(m_returns, crash);
            QVERIFY(connection->get() != nullptr);
            QCOMPARE(xcb_connection_has_error(connection->get()), 0);
            QCOMPARE(m_clock.pending(), 0U);
        }
        // What the new server has to say is heard.
        const int before = m_reads;
        std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(connection->get(), connection->root(), XCB_CW_EVENT_MASK, &events);
        std::free(xcb_get_input_focus_reply(connection->get(), xcb_get_input_focus(connection->get()), nullptr));
        const XClient other(*m_server);
        xcb_delete_property(other.connection(), other.root(), XCB_ATOM_WM_NAME);
        xcb_change_property(
            other.connection(), XCB_PROP_MODE_REPLACE, other.root(), XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, 1, "x");
        other.settle();
        QTRY_VERIFY(m_reads > before);
    }

    void aServerThatStaysAwayIsLookedForAtGrowingIntervals()
    {
        const auto connection = open();
        lose(*connection);
        for (const double interval : {1, 2, 4, 8, 16, 32}) {
            QCOMPARE(m_clock.pending(), 1U);
            QCOMPARE(m_clock.untilNext(), Seconds{interval});
            m_clock.advance(Seconds{interval});
            QVERIFY(connection->get() == nullptr);
        }
        QCOMPARE(m_clock.pending(), 0U);
        QCOMPARE(m_returns, 0);
    }

    void whoIsDestroyedLooksNoMore()
    {
        auto connection = open();
        lose(*connection);
        connection.reset();
        QCOMPARE(m_clock.pending(), 0U);
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
        QCOMPARE(X11Connection::isOnThisMachine(display), isOnThisMachine);
    }

private:
    std::unique_ptr<X11Connection> open()
    {
        auto connection = X11Connection::open(m_server->display(), m_clock);
        connection->onReadable = [this, opened = connection.get()] {
            ++m_reads;
            while (void* event = xcb_poll_for_event(opened->get()))
                std::free(event);
            if (xcb_connection_has_error(opened->get()) != 0)
                opened->lose();
        };
        connection->onBack = [this] { ++m_returns; };
        return connection;
    }

    void lose(const X11Connection& connection)
    {
        m_server->kill();
        QTRY_VERIFY(connection.get() == nullptr);
    }

    void restartServer()
    {
        m_server = std::make_unique<VirtualXServer>();
        QVERIFY(m_server->isRunning());
    }

    FakeClock m_clock;
    std::unique_ptr<VirtualXServer> m_server;
    int m_reads = 0;
    int m_returns = 0;
};

QTEST_GUILESS_MAIN(X11ConnectionTest)
#include "X11ConnectionTest.moc"
