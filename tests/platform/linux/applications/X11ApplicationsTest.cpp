// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/X11Applications.h"

#include "fakes/FakeClock.h"
#include "platform/linux/applications/DesktopFiles.h"
#include "support/TemporaryDataHome.h"
#include "support/TestSupport.h"
#include "support/VirtualXServer.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

/// What a window manager and its clients write, on a connection of their own.
class Desktop {
public:
    explicit Desktop(const QByteArray& display)
        : m_connection(xcb_connect(display.constData(), nullptr))
        , m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root)
    {
        setClients();
    }
    ~Desktop() { xcb_disconnect(m_connection); }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    std::uint32_t open(const QByteArray& instance, const QByteArray& className, const QByteArray& gtkId = {})
    {
        const std::uint32_t window = xcb_generate_id(m_connection);
        xcb_create_window(
            m_connection, 0, window, m_root, 0, 0, 10, 10, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, 0, 0, nullptr);
        if (!className.isNull())
            set(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, instance + '\0' + className + '\0');
        if (!gtkId.isEmpty())
            set(window, atom("_GTK_APPLICATION_ID"), atom("UTF8_STRING"), 8, gtkId);
        m_windows.append(window);
        setClients();
        return window;
    }

    void close(std::uint32_t window)
    {
        m_windows.removeAll(window);
        xcb_destroy_window(m_connection, window);
        setClients();
    }

    /// A client that has gone is still listed.
    void closeBehindTheManager(std::uint32_t window)
    {
        xcb_destroy_window(m_connection, window);
        setClients();
    }

    void touchOtherProperty() { set(m_root, atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 32, QByteArray(4, '\0')); }

private:
    std::uint32_t atom(const char* name)
    {
        const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(strlen(name)), name);
        xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(m_connection, cookie, nullptr);
        const std::uint32_t result = reply->atom;
        std::free(reply);
        return result;
    }

    void setClients()
    {
        set(m_root,
            atom("_NET_CLIENT_LIST"),
            XCB_ATOM_WINDOW,
            32,
            QByteArray(reinterpret_cast<const char*>(m_windows.constData()), m_windows.size() * 4));
    }

    void set(
        std::uint32_t window, std::uint32_t property, std::uint32_t type, std::uint8_t format, const QByteArray& value)
    {
        xcb_change_property(m_connection,
            XCB_PROP_MODE_REPLACE,
            window,
            property,
            type,
            format,
            static_cast<std::uint32_t>(value.size() / (format / 8)),
            value.constData());
        xcb_flush(m_connection);
    }

    xcb_connection_t* m_connection;
    std::uint32_t m_root;
    QList<std::uint32_t> m_windows;
};

RunningApplication withId(const QString& id)
{
    return {.id = id, .localizedName = {}};
}

} // namespace

class X11ApplicationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_data.write("home", "org.example.Editor.desktop", "Name=Editor\nStartupWMClass=editor-wm");
        m_data.write("home", "plain.desktop", "Name=Plain");
        m_data.write("home", "two-words.desktop", "Name=Two Words");
        m_data.write("home", "org.example.Gtk.desktop", "Name=Gtk");
    }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        if (!m_server || !m_server->isRunning())
            startServer();
    }

    void windowsAreMatchedToApplications_data()
    {
        QTest::addColumn<QByteArray>("instance");
        QTest::addColumn<QByteArray>("className");
        QTest::addColumn<QByteArray>("gtkId");
        QTest::addColumn<RunningApplication>("expected");
        const auto row
            = [](const char* name, QByteArray instance, QByteArray className, QByteArray gtkId) -> QTestData& {
            return QTest::newRow(name) << instance << className << gtkId;
        };
        const auto editor = withId(u"org.example.Editor"_s);
        const auto plain = withId(u"plain"_s);
        row("class is a StartupWMClass", "main", "editor-wm", "") << editor;
        row("instance is a StartupWMClass", "editor-wm", "Other", "") << editor;
        row("StartupWMClass goes before the id", "plain", "editor-wm", "") << editor;
        row("instance is an id", "plain", "Other", "") << plain;
        row("class is an id in other case", "main", "Plain", "") << plain;
        row("class with a blank is an id", "main", "Two Words", "") << withId(u"two-words"_s);
        row("application id goes first", "plain", "editor-wm", "org.example.Gtk") << withId(u"org.example.Gtk"_s);
        row("unknown application id", "plain", "Other", "org.example.Nothing") << plain;
        row("no desktop file", "cursor", "Cursor", "") << RunningApplication{.id = {}, .localizedName = u"Cursor"_s};
    }

    void windowsAreMatchedToApplications()
    {
        QFETCH(QByteArray, instance);
        QFETCH(QByteArray, className);
        QFETCH(QByteArray, gtkId);
        QFETCH(RunningApplication, expected);
        Desktop desktop(m_display);
        desktop.open(instance, className, gtkId);
        const auto applications = connect();
        QVERIFY(applications);
        QTRY_COMPARE(applications->list(), QList{expected});
    }

    void windowsThatOpenAndCloseAreSeen()
    {
        Desktop desktop(m_display);
        const auto applications = connect();
        int changes = 0;
        const Subscription listening = applications->changed.subscribe([&] { ++changes; });
        const auto first = desktop.open("plain", "Plain");
        QTRY_COMPARE(applications->list(), QList{withId(u"plain"_s)});
        const auto second = desktop.open("plain", "Plain");
        QTRY_COMPARE(changes, 2);
        QCOMPARE(applications->list(), QList{withId(u"plain"_s)});
        desktop.close(first);
        QTRY_COMPARE(changes, 3);
        QCOMPARE(applications->list(), QList{withId(u"plain"_s)});
        desktop.close(second);
        QTRY_VERIFY(applications->list().isEmpty());
    }

    void otherChangesOfTheRootWindowAreIgnored()
    {
        Desktop desktop(m_display);
        const auto applications = connect();
        int changes = 0;
        const Subscription listening = applications->changed.subscribe([&] { ++changes; });
        desktop.touchOtherProperty();
        desktop.open("plain", "Plain");
        QTRY_COMPARE(changes, 1);
    }

    void windowsWithoutAClassOrAlreadyGoneAreLeftOut()
    {
        Desktop desktop(m_display);
        desktop.open({}, {});
        desktop.closeBehindTheManager(desktop.open("plain", "Plain"));
        desktop.open("cursor", "Cursor");
        const auto applications = connect();
        QTRY_COMPARE(applications->list(), (QList{RunningApplication{.id = {}, .localizedName = u"Cursor"_s}}));
    }

    void manyWindowsAreListed()
    {
        Desktop desktop(m_display);
        for (int i = 0; i < 300; ++i)
            desktop.open("w", QByteArray::number(i));
        const auto applications = connect();
        QTRY_COMPARE(applications->list().size(), 300);
    }

    void aDisplayThatCannotBeReachedHasNoApplications()
    {
        const auto connection = X11Connection::open(":65000", m_clock);
        const X11Applications applications(connection, m_files);
        QTRY_VERIFY(connection->isKnown());
        QVERIFY(applications.list().isEmpty());
    }

    void aLostServerTakesItsApplicationsWithIt()
    {
        const auto lost = showPlain();
        QVERIFY(lost);
        int changes = 0;
        const Subscription listening = lost->changed.subscribe([&] { ++changes; });
        m_server->kill();
        QTRY_VERIFY(lost->list().isEmpty());
        QCOMPARE(changes, 1);
    }

    void aServerThatIsBackBringsItsApplications()
    {
        const auto applications = showPlain();
        QVERIFY(applications);
        m_server->kill();
        QTRY_VERIFY(applications->list().isEmpty());
        startServer();
        Desktop desktop(m_display);
        desktop.open("cursor", "Cursor");
        m_clock.advance(Seconds{1});
        const RunningApplication cursor{.id = {}, .localizedName = u"Cursor"_s};
        QTRY_COMPARE(applications->list(), QList{cursor});
        int changes = 0;
        const Subscription listening = applications->changed.subscribe([&] { ++changes; });
        desktop.open("plain", "Plain");
        QTRY_COMPARE(changes, 1);
        QCOMPARE(applications->list().size(), 2);
    }

private:
    std::unique_ptr<X11Applications> connect()
    {
        return std::make_unique<X11Applications>(X11Connection::open(m_display, m_clock), m_files);
    }

    /// The applications of the server, with that of one window, which is not there any more.
    std::unique_ptr<X11Applications> showPlain()
    {
        Desktop desktop(m_display);
        desktop.open("plain", "Plain");
        auto applications = connect();
        const bool isShown
            = QTest::qWaitFor([&] { return applications->list() == QList{withId(u"plain"_s)}; }, patience);
        return isShown ? std::move(applications) : nullptr;
    }

    void startServer()
    {
        m_server = std::make_unique<VirtualXServer>();
        QVERIFY(m_server->isRunning());
        m_display = m_server->display();
    }

    TemporaryDataHome m_data;
    DesktopFiles m_files;
    FakeClock m_clock;
    std::unique_ptr<VirtualXServer> m_server;
    QByteArray m_display;
};

QTEST_GUILESS_MAIN(X11ApplicationsTest)
#include "X11ApplicationsTest.moc"
