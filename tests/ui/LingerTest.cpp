// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "fakes/FakeDBusService.h"
#include "support/TestSupport.h"
#include "ui/WindowKeeper.h"
#include "ui/mirror/Appearance.h"
#include "ui/mirror/LidClosedMirror.h"
#include "ui/mirror/SettingsMirror.h"
#include "ui/mirror/StatusMirror.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QWindow>

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto linger = 300ms;

bool isPanelShown()
{
    return std::ranges::any_of(QGuiApplication::allWindows(), &QWindow::isVisible);
}

/// Another program on the X server.
class OtherProgram {
public:
    OtherProgram()
        : m_window(xcb_generate_id(m_connection))
    {
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        xcb_create_window(m_connection,
            0,
            m_window,
            screen->root,
            0,
            0,
            1,
            1,
            0,
            XCB_WINDOW_CLASS_INPUT_ONLY,
            XCB_COPY_FROM_PARENT,
            0,
            nullptr);
    }
    ~OtherProgram() { xcb_disconnect(m_connection); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    /// Takes a selection of the Inter-Client Communication Conventions Manual.
    void take(const QByteArray& selection) const { own(selection, m_window); }
    void giveUp(const QByteArray& selection) const { own(selection, XCB_NONE); }

private:
    void own(const QByteArray& selection, xcb_window_t owner) const
    {
        const auto cookie
            = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(selection.size()), selection.constData());
        xcb_intern_atom_reply_t* atom = xcb_intern_atom_reply(m_connection, cookie, nullptr);
        xcb_set_selection_owner(m_connection, owner, atom->atom, XCB_CURRENT_TIME);
        std::free(atom);
        std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

    xcb_connection_t* m_connection = xcb_connect(nullptr, nullptr);
    xcb_window_t m_window;
};

} // namespace

/// How long the UI process stays when there is nothing to see of it.
class LingerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // Every property keeps the value that it has without an answer.
        m_tarvik.handler = [](const QDBusMessage& call) { return call.createReply(QVariantMap()); };
        QVERIFY(m_tarvik.appear());
    }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_keeper.emplace(WindowKeeper::Models{m_status, m_settings, m_lidClosed, m_appearance, {}, {}}, m_bus, linger);
        m_finished.emplace(&*m_keeper, &WindowKeeper::finished);
    }

    void cleanup()
    {
        m_finished.reset();
        m_keeper.reset();
    }

    void aProcessThatIsAskedForNothingLeaves() { QVERIFY(m_finished->wait(patience)); }

    void anOpenWindowKeepsIt()
    {
        click();
        QTRY_VERIFY(isPanelShown());
        QVERIFY(!m_finished->wait(3 * linger.count()));
        QVERIFY(isPanelShown());
    }

    void itLeavesSomeTimeAfterItsLastWindowWasClosed()
    {
        click();
        QTRY_VERIFY(isPanelShown());
        QElapsedTimer sinceClosing;
        sinceClosing.start();
        closePanel();
        QVERIFY(!isPanelShown());
        QVERIFY(m_finished->wait(patience));
        // Timers of this kind may fire 5 % early.
        QVERIFY2(
            sinceClosing.elapsed() >= linger.count() * 9 / 10, qPrintable(QString::number(sinceClosing.elapsed())));
    }

    void aWindowThatOpensAgainMeanwhileKeepsIt()
    {
        for (int i = 0; i < 3; ++i) {
            click();
            QTRY_VERIFY(isPanelShown());
            closePanel();
            QVERIFY(!isPanelShown());
        }
        click();
        QTRY_VERIFY(isPanelShown());
        QVERIFY(!m_finished->wait(3 * linger.count()));
    }

    void whatWasCopiedKeepsItUntilSomebodyElseCopiesSomething()
    {
        QGuiApplication::clipboard()->setText(u"the journal"_s);
        QVERIFY(!m_finished->wait(3 * linger.count()));
        m_other.take("CLIPBOARD");
        QVERIFY(m_finished->wait(patience));
    }

    void itStaysAsUsualWhenSomebodyElseCopiesSomething()
    {
        click();
        QTRY_VERIFY(isPanelShown());
        QGuiApplication::clipboard()->setText(u"the journal"_s);
        m_other.take("CLIPBOARD");
        QTRY_VERIFY(!QGuiApplication::clipboard()->ownsClipboard());
        QVERIFY(!m_finished->wait(3 * linger.count()));
        closePanel();
        QVERIFY(m_finished->wait(patience));
    }

    void aClipboardManagerTakesOver()
    {
        m_other.take("CLIPBOARD_MANAGER");
        QGuiApplication::clipboard()->setText(u"the journal"_s);
        QVERIFY(m_finished->wait(patience));
        QVERIFY(QGuiApplication::clipboard()->ownsClipboard());
        m_other.giveUp("CLIPBOARD_MANAGER");
        m_other.take("CLIPBOARD");
    }

private:
    static void closePanel()
    {
        for (QWindow* window : QGuiApplication::topLevelWindows())
            window->close();
    }

    void click() { m_keeper->showPanel({100, 10}, {}); }

    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"windows"_s);
    FakeDBusService m_tarvik{QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"tarvik"_s),
        u"com.morvanta.Tarvik"_s,
        u"/com/morvanta/Tarvik"_s};
    StatusMirror m_status{m_bus};
    SettingsMirror m_settings{m_bus};
    LidClosedMirror m_lidClosed{m_bus};
    Appearance m_appearance{m_bus};
    std::optional<WindowKeeper> m_keeper;
    std::optional<QSignalSpy> m_finished;
    OtherProgram m_other;
};

int main(int argc, char** argv)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    LingerTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "LingerTest.moc"
