// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/ServedTarvik.h"
#include "support/TestSupport.h"
#include "ui/WindowKeeper.h"
#include "ui/mirror/Appearance.h"
#include "ui/mirror/LidClosedMirror.h"
#include "ui/mirror/MirrorTestSupport.h"
#include "ui/mirror/SettingsMirror.h"
#include "ui/mirror/StatusMirror.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPointer>
#include <QQuickWindow>
#include <QScreen>
#include <QTemporaryDir>

#include <functional>
#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using Show = std::function<void(WindowKeeper&)>;

/// The windows that lid-closed mode shows by itself.
class LidClosedWindowsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QString folder = m_icons.filePath(u"hicolor/256x256/apps"_s);
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(QImage(256, 256, QImage::Format_ARGB32).save(folder + u"/com.morvanta.Tarvik.png"_s));
    }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_keeper.emplace(
            WindowKeeper::Models{m_status, m_settings, m_lidClosed, m_appearance, {}, m_icons.path()}, m_bus, 1h);
        m_tarvik.machine.helper.calls.clear();
    }

    void cleanup() { m_keeper.reset(); }

    void eachComesToTheMiddleOfTheScreen_data()
    {
        QTest::addColumn<Show>("show");
        QTest::addColumn<QString>("title");
        QTest::newRow("onboarding") << showOnboarding << u"Set up lid-closed mode"_s;
        QTest::newRow("restart alert") << showRestartAlert << u"Tarvik"_s;
        QTest::newRow("helper approval") << Show([](WindowKeeper& keeper) { keeper.showHelperApproval({}); })
                                         << u"Tarvik"_s;
    }

    void eachComesToTheMiddleOfTheScreen()
    {
        QFETCH(Show, show);
        QFETCH(QString, title);
        for (int time = 0; time < 2; ++time) {
            expectRaise();
            show(*m_keeper);
            QTRY_COMPARE(openWindows().size(), 1);
            QWindow* window = openWindows().constFirst();
            QTRY_VERIFY(window->isActive());
            QCOMPARE(window->title(), title);
            const QPoint offset = window->geometry().center() - window->screen()->availableGeometry().center();
            QVERIFY2(offset.manhattanLength() <= 2, qPrintable(QDebug::toString(offset)));
            window->setPosition(3, 4);
        }
    }

    void theOnboardingIsKeptWhenItIsClosed()
    {
        expectRaise();
        showOnboarding(*m_keeper);
        QTRY_COMPARE(openWindows().size(), 1);
        QPointer<QWindow> window = openWindows().constFirst();
        window->close();
        QTRY_VERIFY(openWindows().isEmpty());
        QVERIFY(window);
        settle(m_bus);
        QVERIFY(!m_tarvik.machine.store.values.contains(u"clamshellOnboardingComplete"_s));
        expectRaise();
        showOnboarding(*m_keeper);
        QTRY_COMPARE(openWindows(), QWindowList{window});
    }

    void ofTwoThatAreWantedAtOnceBothCome()
    {
        expectRaise();
        expectRaise();
        showOnboarding(*m_keeper);
        showRestartAlert(*m_keeper);
        QTRY_COMPARE(openWindows().size(), 2);
    }

    void aWindowThatBecomesActiveHasTheHelperLookedAt()
    {
        expectRaise();
        showOnboarding(*m_keeper);
        QTRY_VERIFY(m_tarvik.machine.helper.calls.contains(u"refresh"_s));
        openWindows().constFirst()->close();
        QTRY_VERIFY(!QGuiApplication::focusWindow());
        m_tarvik.machine.helper.calls.clear();
        m_keeper->showPanel({100, 10}, {});
        QTRY_VERIFY(m_tarvik.machine.helper.calls.contains(u"refresh"_s));
    }

private:
    /// A display without windows of others has nothing to raise one above.
    static void expectRaise() { expectLog(QtWarningMsg, u"This plugin does not support raise\\(\\)"_s); }

    static QWindowList openWindows()
    {
        QWindowList windows = QGuiApplication::topLevelWindows();
        windows.removeIf([](const QWindow* window) { return !window->isVisible(); });
        return windows;
    }

    inline static const Show showOnboarding = [](WindowKeeper& keeper) { keeper.showOnboarding({}); };
    inline static const Show showRestartAlert = [](WindowKeeper& keeper) { keeper.showRestartAlert({}); };

    QTemporaryDir m_icons;
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"windows"_s);
    ServedTarvik m_tarvik;
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
    LidClosedWindowsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "LidClosedWindowsTest.moc"
