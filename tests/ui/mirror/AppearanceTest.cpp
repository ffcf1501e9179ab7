// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/Appearance.h"

#include "fakes/FakeSettingsPortal.h"
#include "support/TestSupport.h"

#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

const auto appearanceGroup = QString::fromLatin1(FakeSettingsPortal::appearanceGroup);
const auto interfaceGroup = QString::fromLatin1(FakeSettingsPortal::interfaceGroup);

QVariant rgb(double red, double green, double blue)
{
    return FakeSettingsPortal::rgb(red, green, blue);
}

} // namespace

class AppearanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void withoutAPortalEverythingIsPlain()
    {
        Appearance appearance(m_client);
        QTRY_VERIFY(appearance.isKnown());
        QCOMPARE(appearance.isDark(), false);
        QVERIFY(!appearance.accent().isValid());
        QCOMPARE(appearance.isAnimated(), true);
        QCOMPARE(appearance.isHighContrast(), false);
        QCOMPARE(appearance.textScale(), 1.0);
    }

    void thePortalsSettingsAreTakenOver()
    {
        FakeSettingsPortal portal(m_server);
        portal.settings[appearanceGroup]
            = {{u"color-scheme"_s, 1U}, {u"accent-color"_s, rgb(1, 0.5, 0)}, {u"contrast"_s, 1U}};
        portal.settings[interfaceGroup] = {{u"enable-animations"_s, false}, {u"text-scaling-factor"_s, 1.5}};
        QVERIFY(portal.appear());
        Appearance appearance(m_client);
        QSignalSpy known(&appearance, &Appearance::known);
        QTRY_COMPARE(known.size(), 1);
        QCOMPARE(appearance.isDark(), true);
        QCOMPARE(appearance.accent().name(), u"#ff8000"_s);
        QCOMPARE(appearance.isHighContrast(), true);
        QCOMPARE(appearance.isAnimated(), false);
        QCOMPARE(appearance.textScale(), 1.5);
    }

    void changesAreFollowedLive()
    {
        FakeSettingsPortal portal(m_server);
        QVERIFY(portal.appear());
        Appearance appearance(m_client);
        QTRY_VERIFY(appearance.isKnown());
        QSignalSpy changed(&appearance, &Appearance::changed);
        portal.change(appearanceGroup, u"color-scheme"_s, 1U);
        QTRY_COMPARE(appearance.isDark(), true);
        portal.change(appearanceGroup, u"color-scheme"_s, 2U);
        QTRY_COMPARE(appearance.isDark(), false);
        portal.change(interfaceGroup, u"enable-animations"_s, false);
        QTRY_COMPARE(appearance.isAnimated(), false);
        portal.change(appearanceGroup, u"accent-color"_s, rgb(0, 0, 1));
        QTRY_COMPARE(appearance.accent().name(), u"#0000ff"_s);
        QCOMPARE(changed.size(), 4);
    }

    void whatMakesNoSenseIsLeftOut()
    {
        FakeSettingsPortal portal(m_server);
        portal.settings[appearanceGroup]
            = {{u"color-scheme"_s, u"dark"_s}, {u"accent-color"_s, rgb(7, 0, 0)}, {u"contrast"_s, -1}};
        portal.settings[interfaceGroup] = {{u"enable-animations"_s, 0}, {u"text-scaling-factor"_s, 1000.0}};
        QVERIFY(portal.appear());
        Appearance appearance(m_client);
        QTRY_VERIFY(appearance.isKnown());
        QCOMPARE(appearance.isDark(), false);
        QVERIFY(!appearance.accent().isValid());
        QCOMPARE(appearance.isHighContrast(), false);
        QCOMPARE(appearance.isAnimated(), true);
        QCOMPARE(appearance.textScale(), 3.0);
    }

    void aPortalThatAppearsLaterIsRead()
    {
        Appearance appearance(m_client);
        QTRY_VERIFY(appearance.isKnown());
        FakeSettingsPortal portal(m_server);
        portal.settings[appearanceGroup] = {{u"color-scheme"_s, 1U}};
        QVERIFY(portal.appear());
        QTRY_COMPARE(appearance.isDark(), true);
    }

    void withoutASchemeThePlatformsPaletteDecides()
    {
        Appearance appearance(m_client);
        QPalette dark;
        dark.setColor(QPalette::Window, Qt::black);
        dark.setColor(QPalette::WindowText, Qt::white);
        QGuiApplication::setPalette(dark);
        QCOMPARE(appearance.isDark(), true);
        QGuiApplication::setPalette({});
        QCOMPARE(appearance.isDark(), false);
        QTRY_VERIFY(appearance.isKnown());
    }

private:
    QDBusConnection m_server = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"portal"_s);
    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"windows"_s);
};

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    AppearanceTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "AppearanceTest.moc"
