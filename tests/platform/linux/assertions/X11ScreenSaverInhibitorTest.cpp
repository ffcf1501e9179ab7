// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/assertions/X11ScreenSaverInhibitor.h"

#include "fakes/FakeClock.h"
#include "platform/linux/x11/X11Connection.h"
#include "support/TestSupport.h"
#include "support/VirtualXServer.h"

#include <xcb/screensaver.h>

#include <cerrno>
#include <chrono>
#include <utility>

using namespace Tarvik;

namespace {

using std::chrono::milliseconds;

milliseconds now()
{
    return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now().time_since_epoch());
}

milliseconds idleTime(const XClient& client)
{
    const auto cookie = xcb_screensaver_query_info(client.connection(), client.root());
    const std::unique_ptr<xcb_screensaver_query_info_reply_t, decltype(&std::free)> reply(
        xcb_screensaver_query_info_reply(client.connection(), cookie, nullptr), &std::free);
    return milliseconds(reply->ms_since_user_input);
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
        const X11ScreenSaverInhibitor inhibitor(X11Connection::open(server->display(), clock), clock);
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
    }

private:
    /// Longer than the server needs for an answer.
    static constexpr milliseconds longEnough{300};
};

QTEST_GUILESS_MAIN(X11ScreenSaverInhibitorTest)
#include "X11ScreenSaverInhibitorTest.moc"
