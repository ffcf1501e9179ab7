// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/session/DisplaySessionLifetime.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeLogind.h"
#include "platform/linux/x11/X11Connection.h"
#include "support/TestSupport.h"
#include "support/VirtualXServer.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

/// Accepts connections as a compositor does, and says nothing.
class Compositor {
public:
    explicit Compositor(const QString& socket) { m_server.listen(socket); }

    bool hasClient()
    {
        if (m_client == nullptr)
            m_client.reset(m_server.nextPendingConnection());
        return m_client != nullptr;
    }
    void say(const QByteArray& text)
    {
        m_client->write(text);
        m_client->flush();
    }
    void dropClient() { m_client.reset(); }

private:
    QLocalServer m_server;
    std::unique_ptr<QLocalSocket> m_client;
};

} // namespace

class DisplaySessionLifetimeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_ends = 0;
        m_directory = std::make_unique<QTemporaryDir>();
        m_socket = m_directory->filePath(u"wayland-0"_s);
        m_clock = std::make_unique<FakeClock>();
        m_logind = std::make_unique<FakeLogind>(m_service);
        QVERIFY(m_logind->appear());
        m_logind->sessionOfProcess = u"2"_s;
        m_logind->states = {{u"2"_s, u"active"_s}};
    }

    void cleanup() { m_logind.reset(); }

    void aLogoutThatEndsTheXServerEndsIt()
    {
        VirtualXServer server;
        QVERIFY(server.isRunning());
        const auto session = follow({.x11 = connectTo(server.display()), .waylandSocket = {}});
        // Which tells every client that the keyboard has changed.
        QCOMPARE(QProcess::execute(u"setxkbmap"_s, {u"-display"_s, QString::fromLatin1(server.display()), u"de"_s}), 0);
        QCoreApplication::processEvents();
        QCOMPARE(m_ends, 0);
        QCOMPARE(looks(), 0);
        logOut();
        expectEnd();
        server.kill();
        QTRY_COMPARE(m_ends, 1);
        QCOMPARE(m_clock->pending(), 0U);
    }

    void anXServerThatIsFoundLaterIsFollowed()
    {
        VirtualXServer server;
        const auto connection = X11Connection::open(server.display(), m_x11Clock);
        const auto session = follow({.x11 = connection, .waylandSocket = {}});
        QTRY_VERIFY(connection->get() != nullptr);
        logOut();
        expectEnd();
        server.kill();
        QTRY_COMPARE(m_ends, 1);
    }

    void aLogoutThatEndsTheCompositorEndsIt()
    {
        auto compositor = std::make_unique<Compositor>(m_socket);
        const auto session = follow({.x11 = {}, .waylandSocket = m_socket});
        QTRY_VERIFY(compositor->hasClient());
        compositor->say("Something that a later protocol may bring");
        logOut();
        compositor.reset();
        QTRY_COMPARE(m_clock->pending(), 1U);
        QCOMPARE(looks(), 0);
        expectEnd();
        m_clock->advance(Seconds{1});
        QTRY_COMPARE(m_ends, 1);
        QCOMPARE(m_clock->pending(), 0U);
    }

    void aLogoutEndsNothingAsLongAsTheDisplayIsThere()
    {
        const VirtualXServer server;
        const auto session = follow({.x11 = connectTo(server.display()), .waylandSocket = {}});
        logOut();
        QCoreApplication::processEvents();
        QCOMPARE(m_clock->pending(), 0U);
        QCOMPARE(looks(), 0);
        QCOMPARE(m_ends, 0);
    }

    void anXServerThatCrashesEndsNothing()
    {
        const auto session = loseXServer();
        expectLooks(allLooks);
    }

    void aCompositorThatCrashesEndsNothing()
    {
        auto compositor = std::make_unique<Compositor>(m_socket);
        const auto session = follow({.x11 = {}, .waylandSocket = m_socket});
        QTRY_VERIFY(compositor->hasClient());
        compositor.reset();
        QTRY_COMPARE(m_clock->pending(), 1U);
        expectLoss();
        m_clock->advance(Seconds{1});
        QTRY_COMPARE(m_clock->pending(), 1U);
        expectLooks(allLooks);
    }

    void aLogoutThatLogindHearsOfLaterEndsIt_data()
    {
        QTest::addColumn<int>("look");
        for (int look = 1; look <= allLooks; ++look)
            QTest::addRow("seen in look %d", look) << look;
    }

    void aLogoutThatLogindHearsOfLaterEndsIt()
    {
        QFETCH(int, look);
        const auto session = loseXServer();
        for (int earlier = 1; earlier < look; ++earlier) {
            m_clock->advance(m_clock->untilNext());
            QTRY_COMPARE(m_clock->pending(), 1U);
        }
        logOut();
        expectEnd();
        m_clock->advance(m_clock->untilNext());
        QTRY_COMPARE(m_ends, 1);
        QCOMPARE(m_clock->pending(), 0U);
    }

    void withoutLogindADisplayThatGoesEndsNothing()
    {
        m_logind->vanish();
        const auto session = loseXServer();
        for (int look = 1; look < allLooks; ++look) {
            m_clock->advance(m_clock->untilNext());
            QTRY_COMPARE(m_clock->pending(), 1U);
        }
        QCOMPARE(m_ends, 0);
    }

    void aLogindThatComesBackIsAskedAgain()
    {
        m_logind->vanish();
        const auto session = loseXServer();
        QVERIFY(m_logind->appear());
        logOut();
        expectEnd();
        m_clock->advance(Seconds{1});
        QTRY_COMPARE(m_ends, 1);
    }

    void withoutABusADisplayThatGoesEndsNothing()
    {
        VirtualXServer server;
        DisplaySessionLifetime session(
            {.x11 = connectTo(server.display()), .waylandSocket = {}}, QDBusConnection(u"nowhere"_s), *m_clock);
        const Subscription listening = session.ended.subscribe([this] { ++m_ends; });
        expectLoss();
        server.kill();
        QTRY_COMPARE(m_clock->pending(), 1U);
        QCOMPARE(m_ends, 0);
    }

    void nobodyIsAskedAgainWhileAnAnswerIsOnItsWay()
    {
        VirtualXServer server;
        const auto session = follow({.x11 = connectTo(server.display()), .waylandSocket = {}});
        m_logind->answerLater(FakeLogind::state);
        server.kill();
        QTRY_VERIFY(m_logind->isWaiting());
        QCOMPARE(m_clock->pending(), 0U);
        logOut();
        expectEnd();
        m_logind->answerNow();
        QTRY_COMPARE(m_ends, 1);
        QCOMPARE(looks(), 1);
    }

    void whoIsDestroyedWhileAnAnswerIsOnItsWayDoesNotEnd()
    {
        VirtualXServer server;
        auto session = follow({.x11 = connectTo(server.display()), .waylandSocket = {}});
        m_logind->answerLater(FakeLogind::state);
        server.kill();
        QTRY_VERIFY(m_logind->isWaiting());
        session.reset();
        logOut();
        m_logind->answerNow();
        waitForAnswers();
        QCOMPARE(m_ends, 0);
    }

    void whoIsDestroyedLooksNoMore()
    {
        auto session = loseXServer();
        session.reset();
        QCOMPARE(m_clock->pending(), 0U);
    }

    void anXServerThatIsBackIsFollowedAgain()
    {
        auto server = std::make_unique<VirtualXServer>();
        const QByteArray display = server->display();
        const auto session = follow({.x11 = connectTo(display), .waylandSocket = {}});
        for (int crash = 0; crash < 2; ++crash) {
            expectLoss();
            server->kill();
            QTRY_COMPARE(m_clock->pending(), 1U);
            server = std::make_unique<VirtualXServer>();
            QVERIFY(server->isRunning());
            m_x11Clock.advance(Seconds{1});
            m_clock->advance(Seconds{1});
            waitForAnswers();
            QCOMPARE(m_clock->pending(), 0U);
        }
        logOut();
        expectEnd();
        server->kill();
        QTRY_COMPARE(m_ends, 1);
    }

    void aCompositorThatIsBackLateIsFollowedAgain()
    {
        auto compositor = std::make_unique<Compositor>(m_socket);
        const auto session = follow({.x11 = {}, .waylandSocket = m_socket});
        QTRY_VERIFY(compositor->hasClient());
        compositor.reset();
        QTRY_COMPARE(m_clock->pending(), 1U);
        expectLoss();
        m_clock->advance(Seconds{1});
        QTRY_COMPARE(m_clock->pending(), 1U);
        compositor = std::make_unique<Compositor>(m_socket);
        m_clock->advance(Seconds{1});
        QTRY_VERIFY(compositor->hasClient());
        QCOMPARE(m_clock->pending(), 0U);
        QCOMPARE(m_ends, 0);
    }

    void theDisplayOfALaterLoginIsNotFollowed()
    {
        auto server = std::make_unique<VirtualXServer>();
        const QByteArray display = server->display();
        const auto session = follow({.x11 = connectTo(display), .waylandSocket = {}});
        expectLoss();
        server->kill();
        QTRY_COMPARE(m_clock->pending(), 1U);
        server = std::make_unique<VirtualXServer>();
        m_x11Clock.advance(Seconds{1});
        logOut();
        expectEnd();
        m_clock->advance(Seconds{1});
        QTRY_COMPARE(m_ends, 1);
    }

    void itGoesOnWhenTheCompositorComesBack()
    {
        auto compositor = std::make_unique<Compositor>(m_socket);
        const auto session = follow({.x11 = {}, .waylandSocket = m_socket});
        QTRY_VERIFY(compositor->hasClient());
        for (int crash = 0; crash < 3; ++crash) {
            compositor.reset();
            QTRY_COMPARE(m_clock->pending(), 1U);
            compositor = std::make_unique<Compositor>(m_socket);
            m_clock->advance(Seconds{1});
            QTRY_VERIFY(compositor->hasClient());
        }
        QCOMPARE(m_ends, 0);
    }

    void aCompositorThatRefusesIsAskedOnceASecondAtMost()
    {
        Compositor compositor(m_socket);
        const auto session = follow({.x11 = {}, .waylandSocket = m_socket});
        for (int second = 0; second < 3; ++second) {
            QTRY_VERIFY(compositor.hasClient());
            compositor.dropClient();
            QTRY_COMPARE(m_clock->pending(), 1U);
            QVERIFY(!compositor.hasClient());
            m_clock->advance(Seconds{1});
        }
        QCOMPARE(m_ends, 0);
    }

    void underACompositorTheXServerMayRestart()
    {
        Compositor compositor(m_socket);
        VirtualXServer server;
        const auto session = follow({.x11 = connectTo(server.display()), .waylandSocket = m_socket});
        QTRY_VERIFY(compositor.hasClient());
        server.kill();
        QCoreApplication::processEvents();
        QCOMPARE(m_ends, 0);
    }

    void withoutItsCompositorItFollowsTheXServer()
    {
        VirtualXServer server;
        const auto session = follow({.x11 = connectTo(server.display()), .waylandSocket = m_socket});
        logOut();
        expectEnd();
        server.kill();
        QTRY_COMPARE(m_ends, 1);
    }

    void withoutADisplayItNeverEnds_data()
    {
        QTest::addColumn<QByteArray>("x11");
        QTest::addColumn<QString>("waylandSocket");
        QTest::newRow("none") << QByteArray() << QString();
        QTest::newRow("nobody listens") << QByteArray(":4711") << u"/nonexistent/wayland-0"_s;
        QTest::newRow("a path that is too long") << QByteArray() << u'/' + QString(200, u'x');
        QTest::newRow("on another machine") << QByteArray("localhost:10.0") << QString();
    }

    void withoutADisplayItNeverEnds()
    {
        QFETCH(QByteArray, x11);
        QFETCH(QString, waylandSocket);
        const auto session = follow({.x11 = x11.isEmpty() ? nullptr : connectTo(x11), .waylandSocket = waylandSocket});
        QCoreApplication::processEvents();
        QCOMPARE(m_clock->pending(), 0U);
        QCOMPARE(m_ends, 0);
    }

private:
    /// At once, and 1, 2, 4, 8, 16 and 32 seconds after the one before.
    static constexpr int allLooks = 6;

    /// A connection that has found out whether there is a server.
    std::shared_ptr<X11Connection> connectTo(const QByteArray& display)
    {
        auto connection = X11Connection::open(display, m_x11Clock);
        [&] { QTRY_VERIFY(connection->isKnown()); }();
        return connection;
    }

    std::unique_ptr<DisplaySessionLifetime> follow(const DisplaySessionLifetime::Display& display)
    {
        auto session = std::make_unique<DisplaySessionLifetime>(display, m_client, *m_clock);
        m_listening = session->ended.subscribe([this] { ++m_ends; });
        return session;
    }

    /// A session whose X server has gone, and that has looked once.
    std::unique_ptr<DisplaySessionLifetime> loseXServer()
    {
        VirtualXServer server;
        auto session = follow({.x11 = connectTo(server.display()), .waylandSocket = {}});
        expectLoss();
        server.kill();
        [&] { QTRY_COMPARE(m_clock->pending(), 1U); }();
        return session;
    }

    /// Each twice as long after the one before, the first after a second, and then no more.
    void expectLooks(int count)
    {
        Seconds interval{1};
        for (int look = 1; look <= count; ++look, interval *= 2) {
            QCOMPARE(looks(), look);
            QCOMPARE(m_clock->untilNext(), interval);
            m_clock->advance(interval);
            QTRY_COMPARE(looks(), look + 1);
            if (look < count)
                QTRY_COMPARE(m_clock->pending(), 1U);
        }
        QCoreApplication::processEvents();
        QCOMPARE(m_clock->pending(), 0U);
        QCOMPARE(m_ends, 0);
    }

    /// Until all that logind has been asked is answered: its answers to one connection come in the order of the
    /// questions.
    void waitForAnswers()
    {
        LogindSession login(m_client);
        bool isAnswered = false;
        login.askWhetherOver([&](bool) { isAnswered = true; });
        QTRY_VERIFY(isAnswered);
    }

    void logOut() { m_logind->states[u"2"_s] = u"closing"_s; }

    int looks() const { return static_cast<int>(m_logind->questions.count(FakeLogind::processSession)); }

    static void expectLoss()
    {
        expectLog(QtInfoMsg, u"^the display has gone, but not the session: going on without it$"_s);
    }
    static void expectEnd() { expectLog(QtInfoMsg, u"^the session has ended with its display$"_s); }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_service = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"service"_s);
    std::unique_ptr<FakeClock> m_clock;
    FakeClock m_x11Clock;
    std::unique_ptr<FakeLogind> m_logind;
    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_socket;
    int m_ends = 0;
    Subscription m_listening;
};

QTEST_GUILESS_MAIN(DisplaySessionLifetimeTest)
#include "DisplaySessionLifetimeTest.moc"
