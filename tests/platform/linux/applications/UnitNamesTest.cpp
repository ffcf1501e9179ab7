// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/UnitNames.h"

#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class UnitNamesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void unitsOfApplicationsGiveTheirDesktopId_data()
    {
        QTest::addColumn<QString>("unit");
        QTest::addColumn<QString>("id");
        const auto uuid = u"0a1b2c3d4e5f60718293a4b5c6d7e8f9"_s;
        QTest::newRow("GNOME") << u"app-gnome-org.gnome.Nautilus-4242.scope"_s << u"org.gnome.Nautilus"_s;
        QTest::newRow("GNOME, dash") << u"app-gnome-google\\x2dchrome-4242.scope"_s << u"google-chrome"_s;
        QTest::newRow("Flatpak") << u"app-flatpak-com.visualstudio.code-991.scope"_s << u"com.visualstudio.code"_s;
        QTest::newRow("KDE service") << u"app-org.kde.kate@"_s + uuid + u".service"_s << u"org.kde.kate"_s;
        QTest::newRow("KDE service, dash") << u"app-code\\x2doss@"_s + uuid + u".service"_s << u"code-oss"_s;
        QTest::newRow("KDE scope") << u"app-org.kde.dolphin-"_s + uuid + u".scope"_s << u"org.kde.dolphin"_s;
        QTest::newRow("no launcher") << u"app-cursor-77.scope"_s << u"cursor"_s;
        QTest::newRow("service, no instance") << u"app-org.example.Editor.service"_s << u"org.example.Editor"_s;
        QTest::newRow("autostart") << u"app-gnome\\x2dkeyring\\x2dpkcs11@autostart.service"_s
                                   << u"gnome-keyring-pkcs11"_s;
        QTest::newRow("suffix kept") << u"app-uwsm-firefox.desktop-12ab.scope"_s << u"firefox"_s;
        QTest::newRow("UTF-8") << u"app-gnome-\\xc3\\xa4pfel-1.scope"_s << u"äpfel"_s;
        QTest::newRow("snap") << u"snap.code.code-0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f9.scope"_s << u"code_code"_s;
        QTest::newRow("snap, dash") << u"snap.my-app.my-tool-0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f9.scope"_s
                                    << u"my-app_my-tool"_s;
    }

    void unitsOfApplicationsGiveTheirDesktopId()
    {
        QFETCH(QString, unit);
        QFETCH(QString, id);
        QCOMPARE(UnitNames::desktopId(unit), std::optional(id));
    }

    void otherUnitsGiveNothing_data()
    {
        QTest::addColumn<QString>("unit");
        for (const char* unit : {"",
                 "app.slice",
                 "app-.scope",
                 "app-gnome-org.gnome.Nautilus.slice",
                 "vte-spawn-0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f9.scope",
                 "dbus.service",
                 "session.slice",
                 "app-gnome-x-1.scope.d",
                 "snap.code.code.service",
                 "xapp-gnome-x-1.scope"})
            QTest::newRow(unit) << QString::fromLatin1(unit);
    }

    void otherUnitsGiveNothing()
    {
        QFETCH(QString, unit);
        QCOMPARE(UnitNames::desktopId(unit), std::nullopt);
    }

    void malformedEscapesStay()
    {
        QCOMPARE(UnitNames::unescaped(u"a\\x2db"_s), u"a-b"_s);
        QCOMPARE(UnitNames::unescaped(u"a\\x2"_s), u"a\\x2"_s);
        QCOMPARE(UnitNames::unescaped(u"a\\xzz"_s), u"a\\xzz"_s);
        QCOMPARE(UnitNames::unescaped(u"a\\"_s), u"a\\"_s);
        QCOMPARE(UnitNames::unescaped(u"\\x5cx2d"_s), u"\\x2d"_s);
    }
};

QTEST_GUILESS_MAIN(UnitNamesTest)
#include "UnitNamesTest.moc"
