// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/panel/Panel.h"

#include "bus/CoordinatorMirror.h"
#include "bus/SettingsMirror.h"
#include "support/TestSupport.h"
#include "ui/design/Appearance.h"
#include "ui/design/IconProvider.h"
#include "ui/design/ShadowProvider.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;

/// What a panel that was open before carries along.
class PanelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_engine.addImportPath(u"qrc:/qt/qml"_s);
        m_engine.addImageProvider(u"icons"_s, new IconProvider);
        m_engine.addImageProvider(u"shadows"_s, new ShadowProvider);
    }

    void aMovedFocusIsToldOnceHoweverOftenThePanelWasOpen()
    {
        for (int i = 0; i < 3; ++i) {
            open();
            window().close();
            QTRY_VERIFY(!m_panel.isVisible());
        }
        open();
        QSignalSpy told(qGuiApp, &QGuiApplication::focusObjectChanged);
        QTest::keyClick(&window(), Qt::Key_Tab);
        QCOMPARE(told.count(), 1);
    }

private:
    void open()
    {
        m_panel.open({100, 10}, {});
        QTRY_VERIFY(m_panel.isVisible() && window().isActive());
    }

    static QWindow& window() { return *QGuiApplication::topLevelWindows().constFirst(); }

    QDBusConnection m_bus = QDBusConnection::sessionBus();
    CoordinatorMirror m_coordinator{m_bus};
    SettingsMirror m_settings{m_bus};
    Appearance m_appearance{m_bus};
    QQmlEngine m_engine;
    Panel m_panel{m_engine, {m_coordinator, m_settings, m_appearance}, m_bus};
};

int main(int argc, char** argv)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    PanelTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "PanelTest.moc"
