// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/WaylandApplications.h"

#include "fakes/FakeClock.h"
#include "platform/linux/applications/DesktopFiles.h"
#include "support/SwaySession.h"
#include "support/TemporaryDataHome.h"
#include "support/TestSupport.h"

#include <QFileInfo>

#include <wayland-server-core.h>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

/// Another program with a window; it ends with the object.
class OtherProgram {
public:
    OtherProgram(const SwaySession& session, const QString& appId)
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
        environment.insert(u"WAYLAND_DISPLAY"_s, session.socket());
        environment.insert(u"XDG_RUNTIME_DIR"_s, QFileInfo(session.socket()).path());
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::ForwardedChannels);
        m_process.start(QStringLiteral(WAYLAND_WINDOW), {appId});
        m_process.waitForStarted();
    }
    ~OtherProgram()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    void setTitle(const QByteArray& title) { m_process.write(title + '\n'); }

private:
    QProcess m_process;
};

/// A compositor that offers nothing.
class BareCompositor {
public:
    explicit BareCompositor(const QString& socket)
        : m_display(wl_display_create())
        , m_isListening(wl_display_add_socket(m_display, socket.toLocal8Bit().constData()) == 0)
    {
    }
    ~BareCompositor()
    {
        wl_display_destroy_clients(m_display);
        wl_display_destroy(m_display);
    }
    BareCompositor(const BareCompositor&) = delete;
    BareCompositor& operator=(const BareCompositor&) = delete;

    bool isListening() const { return m_isListening; }
    bool hasClient() const { return wl_list_empty(wl_display_get_client_list(m_display)) == 0; }
    void work() const
    {
        wl_event_loop_dispatch(wl_display_get_event_loop(m_display), 0);
        wl_display_flush_clients(m_display);
    }

private:
    wl_display* m_display;
    bool m_isListening;
};

RunningApplication withId(const QString& id)
{
    return {.id = id, .localizedName = {}};
}

} // namespace

class WaylandApplicationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_data.write("home", "org.example.Editor.desktop", "Name=Editor\nStartupWMClass=editor-wm");
        m_data.write("home", "plain.desktop", "Name=Plain");
    }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_clock = std::make_unique<FakeClock>();
    }

    void windowsAreMatchedToApplications_data()
    {
        QTest::addColumn<QString>("appId");
        QTest::addColumn<RunningApplication>("expected");
        QTest::newRow("an id") << u"org.example.Editor"_s << withId(u"org.example.Editor"_s);
        QTest::newRow("an id in other case") << u"Plain"_s << withId(u"plain"_s);
        QTest::newRow("a StartupWMClass") << u"editor-wm"_s << withId(u"org.example.Editor"_s);
        QTest::newRow("no desktop file") << u"Cursor"_s << RunningApplication{.id = {}, .localizedName = u"Cursor"_s};
    }

    void windowsAreMatchedToApplications()
    {
        QFETCH(QString, appId);
        QFETCH(RunningApplication, expected);
        const OtherProgram program(session(), appId);
        const auto applications = connect();
        QVERIFY(applications);
        QTRY_COMPARE(applications->list(), QList{expected});
    }

    void windowsThatOpenAndCloseAreSeen()
    {
        const auto applications = connect();
        QVERIFY(applications);
        int changes = 0;
        const Subscription listening = applications->changed.subscribe([&] { ++changes; });
        auto first = std::make_unique<OtherProgram>(session(), u"plain"_s);
        QTRY_COMPARE(applications->list(), QList{withId(u"plain"_s)});
        QCOMPARE(changes, 1);
        first.reset();
        waitFor([&] { return applications->list().isEmpty(); });
        QCOMPARE(changes, 2);
    }

    void theWindowsOfOneApplicationAreOne()
    {
        const auto applications = connect();
        QVERIFY(applications);
        int changes = 0;
        const Subscription listening = applications->changed.subscribe([&] { ++changes; });
        const OtherProgram first(session(), u"plain"_s);
        QTRY_COMPARE(changes, 1);
        const OtherProgram second(session(), u"plain"_s);
        waitFor([&] { return changes == 2; });
        QCOMPARE(applications->list(), QList{withId(u"plain"_s)});
    }

    void titlesAreReadOnceASecondAtMost()
    {
        const auto applications = connect();
        QVERIFY(applications);
        int changes = 0;
        const Subscription listening = applications->changed.subscribe([&] { ++changes; });
        OtherProgram program(session(), u"plain"_s);
        QTRY_COMPARE(changes, 1);
        program.setTitle("Working");
        QTRY_COMPARE(m_clock->pending(), 1U);
        QCOMPARE(m_clock->untilNext(), Seconds{1});
        program.setTitle("Still working");
        m_clock->advance(Seconds{1});
        QCOMPARE(m_clock->pending(), 0U);
        QTRY_COMPARE(m_clock->pending(), 1U);
        QCOMPARE(changes, 1);
    }

    void aCompositorThatGoesTakesItsApplicationsAlong()
    {
        auto mortal = std::make_unique<SwaySession>();
        const OtherProgram program(*mortal, u"plain"_s);
        const auto applications = WaylandApplications::connect(mortal->socket(), m_files, *m_clock);
        QVERIFY(applications);
        QTRY_COMPARE(applications->list(), QList{withId(u"plain"_s)});
        int changes = 0;
        const Subscription listening = applications->changed.subscribe([&] { ++changes; });
        mortal.reset();
        waitFor([&] { return applications->list().isEmpty(); });
        QVERIFY(changes > 0);
    }

    void aCompositorThatDoesNotTellIsLeftAlone()
    {
        const QTemporaryDir directory;
        const QString socket = directory.filePath(u"wayland-0"_s);
        const BareCompositor compositor(socket);
        QVERIFY(compositor.isListening());
        const auto applications = WaylandApplications::connect(socket, m_files, *m_clock);
        QVERIFY(applications);
        compositor.work();
        QVERIFY(compositor.hasClient());
        waitFor([&] {
            compositor.work();
            return !compositor.hasClient();
        });
        QCOMPARE(applications->list(), {});
    }

    void withoutACompositorThereIsNothing()
    {
        QCOMPARE(WaylandApplications::connect(u"/nonexistent/wayland-0"_s, m_files, *m_clock), nullptr);
    }

private:
    const SwaySession& session()
    {
        if (m_session == nullptr)
            m_session = std::make_unique<SwaySession>();
        return *m_session;
    }

    std::unique_ptr<WaylandApplications> connect()
    {
        return WaylandApplications::connect(session().socket(), m_files, *m_clock);
    }

    /// With the seconds passing meanwhile.
    void waitFor(const std::function<bool()>& isTrue) { QTRY_VERIFY((m_clock->advance(Seconds{1}), isTrue())); }

    TemporaryDataHome m_data;
    DesktopFiles m_files;
    std::unique_ptr<FakeClock> m_clock;
    std::unique_ptr<SwaySession> m_session;
};

QTEST_GUILESS_MAIN(WaylandApplicationsTest)
#include "WaylandApplicationsTest.moc"
