// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/session/DisplaySessionLifetime.h"

#include "fakes/FakeClock.h"
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
    }

    void itEndsWithTheXServer()
    {
        VirtualXServer server;
        QVERIFY(server.isRunning());
        const auto session = follow({.x11 = server.display(), .waylandSocket = {}});
        // Which tells every client that the keyboard has changed.
        QCOMPARE(QProcess::execute(u"setxkbmap"_s, {u"-display"_s, QString::fromLatin1(server.display()), u"de"_s}), 0);
        QCoreApplication::processEvents();
        QCOMPARE(m_ends, 0);
        expectEnd();
        server.kill();
        QTRY_COMPARE(m_ends, 1);
    }

    void itEndsWithTheCompositor()
    {
        auto compositor = std::make_unique<Compositor>(m_socket);
        const auto session = follow({.x11 = {}, .waylandSocket = m_socket});
        QTRY_VERIFY(compositor->hasClient());
        compositor->say("Something that a later protocol may bring");
        compositor.reset();
        QTRY_COMPARE(m_clock.pending(), 1U);
        expectEnd();
        m_clock.advance(Seconds{1});
        QCOMPARE(m_ends, 1);
    }

    void itGoesOnWhenTheCompositorComesBack()
    {
        auto compositor = std::make_unique<Compositor>(m_socket);
        const auto session = follow({.x11 = {}, .waylandSocket = m_socket});
        QTRY_VERIFY(compositor->hasClient());
        for (int crash = 0; crash < 3; ++crash) {
            compositor.reset();
            QTRY_COMPARE(m_clock.pending(), 1U);
            compositor = std::make_unique<Compositor>(m_socket);
            m_clock.advance(Seconds{1});
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
            QTRY_COMPARE(m_clock.pending(), 1U);
            QVERIFY(!compositor.hasClient());
            m_clock.advance(Seconds{1});
        }
        QCOMPARE(m_ends, 0);
    }

    void underACompositorTheXServerMayRestart()
    {
        Compositor compositor(m_socket);
        VirtualXServer server;
        const auto session = follow({.x11 = server.display(), .waylandSocket = m_socket});
        QTRY_VERIFY(compositor.hasClient());
        server.kill();
        QCoreApplication::processEvents();
        QCOMPARE(m_ends, 0);
    }

    void withoutItsCompositorItFollowsTheXServer()
    {
        VirtualXServer server;
        const auto session = follow({.x11 = server.display(), .waylandSocket = m_socket});
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
        const auto session = follow({.x11 = x11, .waylandSocket = waylandSocket});
        QCoreApplication::processEvents();
        QCOMPARE(m_clock.pending(), 0U);
        QCOMPARE(m_ends, 0);
    }

private:
    std::unique_ptr<DisplaySessionLifetime> follow(const DisplaySessionLifetime::Display& display)
    {
        auto session = std::make_unique<DisplaySessionLifetime>(display, m_clock);
        session->onEnd = [this] { ++m_ends; };
        return session;
    }

    static void expectEnd() { expectLog(QtInfoMsg, u"^the display has gone, and with it the session$"_s); }

    FakeClock m_clock;
    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_socket;
    int m_ends = 0;
};

QTEST_GUILESS_MAIN(DisplaySessionLifetimeTest)
#include "DisplaySessionLifetimeTest.moc"
