// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/assertions/X11ScreenSaverInhibitor.h"

#include "fakes/FakeClock.h"
#include "platform/linux/x11/X11Connection.h"
#include "support/TestSupport.h"
#include "support/VirtualXServer.h"

#include <sys/socket.h>
#include <xcb/screensaver.h>

#include <cerrno>
#include <chrono>
#include <utility>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using std::chrono::milliseconds;

milliseconds now()
{
    return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now().time_since_epoch());
}

std::unique_ptr<xcb_screensaver_query_info_reply_t, decltype(&std::free)> screenSaver(const XClient& client)
{
    const auto cookie = xcb_screensaver_query_info(client.connection(), client.root());
    return {xcb_screensaver_query_info_reply(client.connection(), cookie, nullptr), &std::free};
}

milliseconds idleTime(const XClient& client)
{
    return milliseconds(screenSaver(client)->ms_since_user_input);
}

bool isSaved(const XClient& client)
{
    return screenSaver(client)->state == XCB_SCREENSAVER_STATE_ON;
}

void saveScreenAfter(const XClient& client, std::chrono::seconds time)
{
    xcb_set_screen_saver(
        client.connection(), static_cast<std::int16_t>(time.count()), 0, XCB_BLANKING_PREFERRED, XCB_EXPOSURES_DEFAULT);
    client.settle();
}

/// When the server has last believed in activity; too early by as long as its answer has taken.
milliseconds lastActivity(const XClient& client)
{
    const milliseconds asked = now();
    return asked - idleTime(client);
}

} // namespace

class X11ScreenSaverInhibitorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theServerBelievesInActivityAgainAndAgain()
    {
        const VirtualXServer server;
        QVERIFY(server.isRunning());
        const XClient other(server);
        FakeClock clock;
        const auto connection = X11Connection::open(server.display(), clock);
        QTRY_VERIFY(connection->get() != nullptr);
        QTRY_VERIFY(idleTime(other) > longEnough);
        milliseconds beginning = now();
        const X11ScreenSaverInhibitor inhibitor(connection, clock);
        QCOMPARE(inhibitor.state(), Inhibitor::State::effective);
        QCOMPARE(inhibitor.error(), 0);
        for (int time = 0; time < 3; ++time) {
            QTRY_VERIFY(lastActivity(other) > beginning - longEnough);
            QTRY_VERIFY(idleTime(other) > longEnough);
            beginning = now();
            clock.advance(Seconds{25});
        }
        QTRY_VERIFY(lastActivity(other) > beginning - longEnough);
    }

    void theServerBelievesEvenWhoLeavesAtOnce()
    {
        const VirtualXServer server;
        const XClient other(server);
        FakeClock clock;
        auto connection = X11Connection::open(server.display(), clock);
        QTRY_VERIFY(connection->get() != nullptr);
        QTRY_VERIFY(idleTime(other) > longEnough);
        const milliseconds beginning = now();
        std::make_unique<X11ScreenSaverInhibitor>(std::exchange(connection, nullptr), clock).reset();
        QVERIFY(lastActivity(other) > beginning - longEnough);
    }

    void theServersScreenSaverWaitsForTheLastOfThem()
    {
        const VirtualXServer server;
        const XClient other(server);
        FakeClock clock;
        const auto connection = X11Connection::open(server.display(), clock);
        auto first = std::make_unique<X11ScreenSaverInhibitor>(connection, clock);
        auto second = std::make_unique<X11ScreenSaverInhibitor>(connection, clock);
        awaitServer(*connection);
        saveScreenAfter(other, 1s);
        QTRY_VERIFY(idleTime(other) > 1500ms);
        QVERIFY(!isSaved(other));
        first.reset();
        QTRY_VERIFY(idleTime(other) > 2500ms);
        QVERIFY(!isSaved(other));
        second.reset();
        QTRY_VERIFY(isSaved(other));
    }

    void theServersScreenSaverOutlivesWhoSuspendsIt()
    {
        const VirtualXServer server;
        const XClient other(server);
        FakeClock clock;
        const auto connection = X11Connection::open(server.display(), clock);
        const X11ScreenSaverInhibitor inhibitor(connection, clock);
        awaitServer(*connection);
        saveScreenAfter(other, 1s);
        QTRY_VERIFY(idleTime(other) > 1500ms);
        QVERIFY(!isSaved(other));
        // What is left of a program that is killed.
        ::shutdown(xcb_get_file_descriptor(connection->get()), SHUT_RDWR);
        QTRY_VERIFY(isSaved(other));
    }

    void aServerWithoutTheExtensionBelievesInActivityOnly()
    {
        const VirtualXServer server({u"-extension"_s, u"MIT-SCREEN-SAVER"_s});
        QVERIFY(server.isRunning());
        FakeClock clock;
        const auto connection = X11Connection::open(server.display(), clock);
        auto inhibitor = std::make_unique<X11ScreenSaverInhibitor>(connection, clock);
        awaitServer(*connection);
        QCOMPARE(inhibitor->state(), Inhibitor::State::effective);
        inhibitor.reset();
        QCOMPARE(xcb_connection_has_error(connection->get()), 0);
    }

    void itStopsWhenItIsDestroyed()
    {
        FakeClock clock;
        std::make_unique<X11ScreenSaverInhibitor>(X11Connection::open(":4711", clock), clock).reset();
        QCOMPARE(clock.pending(), 0U);
    }

    void aServerThatCannotBeReachedRefuses()
    {
        FakeClock clock;
        const X11ScreenSaverInhibitor inhibitor(X11Connection::open(":4711", clock), clock);
        QCOMPARE(inhibitor.state(), Inhibitor::State::pending);
        QCOMPARE(inhibitor.error(), 0);
        QTRY_COMPARE(inhibitor.state(), Inhibitor::State::refused);
        QCOMPARE(inhibitor.error(), ECONNREFUSED);
        clock.advance(Seconds{25});
    }

    void aServerThatIsBackBelievesAgain()
    {
        auto server = std::make_unique<VirtualXServer>();
        FakeClock clock;
        const auto connection = X11Connection::open(server->display(), clock);
        const X11ScreenSaverInhibitor inhibitor(connection, clock);
        QTRY_COMPARE(inhibitor.state(), Inhibitor::State::effective);
        server->kill();
        QTRY_COMPARE(inhibitor.state(), Inhibitor::State::refused);
        server = std::make_unique<VirtualXServer>();
        QVERIFY(server->isRunning());
        const XClient other(*server);
        QTRY_VERIFY(idleTime(other) > longEnough);
        const milliseconds beginning = now();
        clock.advance(Seconds{1});
        QCOMPARE(inhibitor.state(), Inhibitor::State::effective);
        QTRY_VERIFY(lastActivity(other) > beginning - longEnough);
        awaitServer(*connection);
        saveScreenAfter(other, 1s);
        QTRY_VERIFY(idleTime(other) > 1500ms);
        QVERIFY(!isSaved(other));
    }

private:
    /// Until the server has done what it was asked for, and what was asked of it because of its answers.
    static void awaitServer(X11Connection& connection)
    {
        QTRY_VERIFY(connection.get() != nullptr);
        for (int time = 0; time < 2; ++time) {
            bool isAnswered = false;
            const auto request = xcb_get_input_focus(connection.get());
            const Subscription answer = connection.await(request.sequence, [&](const void*) { isAnswered = true; });
            connection.send();
            QTRY_VERIFY(isAnswered);
        }
    }

    /// Longer than the server needs for an answer.
    static constexpr milliseconds longEnough{300};
};

QTEST_GUILESS_MAIN(X11ScreenSaverInhibitorTest)
#include "X11ScreenSaverInhibitorTest.moc"
