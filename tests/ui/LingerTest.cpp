// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "fakes/FakeDBusService.h"
#include "support/TestSupport.h"
#include "ui/WindowKeeper.h"
#include "ui/mirror/Appearance.h"
#include "ui/mirror/LidClosedMirror.h"
#include "ui/mirror/SettingsMirror.h"
#include "ui/mirror/StatusMirror.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QWindow>

#include <algorithm>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto linger = 300ms;

bool isPanelShown()
{
    return std::ranges::any_of(QGuiApplication::allWindows(), &QWindow::isVisible);
}

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
};

int main(int argc, char** argv)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    LingerTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "LingerTest.moc"
