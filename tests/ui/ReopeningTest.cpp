// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "fakes/FakeDBusService.h"
#include "support/TestSupport.h"
#include "ui/WindowKeeper.h"
#include "ui/mirror/Appearance.h"
#include "ui/mirror/LidClosedMirror.h"
#include "ui/mirror/SettingsMirror.h"
#include "ui/mirror/StatusMirror.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QSignalSpy>

#include <algorithm>
#include <functional>
#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using Show = std::function<void(WindowKeeper&)>;

/// What a window that was open before carries along.
class ReopeningTest : public QObject {
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
        m_keeper.emplace(WindowKeeper::Models{m_status, m_settings, m_lidClosed, m_appearance, {}, {}}, m_bus, 1h);
    }

    void cleanup() { m_keeper.reset(); }

    void aMovedFocusIsToldOnceHoweverOftenTheWindowWasOpen_data()
    {
        QTest::addColumn<Show>("show");
        QTest::newRow("panel") << Show([](WindowKeeper& keeper) { keeper.showPanel({100, 10}, {}); });
        QTest::newRow("settings") << Show([](WindowKeeper& keeper) {
            // A display without windows of others has nothing to raise one above.
            expectLog(QtWarningMsg, u"This plugin does not support raise\\(\\)"_s);
            keeper.showSettings({});
        });
    }

    void aMovedFocusIsToldOnceHoweverOftenTheWindowWasOpen()
    {
        QFETCH(Show, show);
        for (int i = 0; i < 3; ++i) {
            show(*m_keeper);
            QTRY_VERIFY(openWindow() && openWindow()->isActive());
            openWindow()->close();
            QTRY_VERIFY(!openWindow());
        }
        show(*m_keeper);
        QTRY_VERIFY(openWindow() && openWindow()->isActive());
        QSignalSpy told(qGuiApp, &QGuiApplication::focusObjectChanged);
        QTest::keyClick(openWindow(), Qt::Key_Tab);
        QCOMPARE(told.count(), 1);
    }

private:
    static QWindow* openWindow()
    {
        const QWindowList windows = QGuiApplication::topLevelWindows();
        const auto found = std::ranges::find_if(windows, &QWindow::isVisible);
        return found == windows.end() ? nullptr : *found;
    }

    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"windows"_s);
    FakeDBusService m_tarvik{QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"tarvik"_s),
        u"com.morvanta.Tarvik"_s,
        u"/com/morvanta/Tarvik"_s};
    StatusMirror m_status{m_bus};
    SettingsMirror m_settings{m_bus};
    LidClosedMirror m_lidClosed{m_bus};
    Appearance m_appearance{m_bus};
    std::optional<WindowKeeper> m_keeper;
};

int main(int argc, char** argv)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    ReopeningTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "ReopeningTest.moc"
