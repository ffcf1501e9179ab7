// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/assertions/DesktopHoldRules.h"

#include "support/TestSupport.h"

using namespace Tarvik;
using enum DesktopHold;

using Holds = QList<DesktopHold>;

namespace QTest {

template <>
char* toString(const Holds& holds)
{
    QStringList words;
    for (const DesktopHold hold : holds)
        words.append(DesktopHolds::serviceLabel(hold) + u' ' + DesktopHolds::what(hold));
    return qstrdup(qPrintable(words.join(u", ")));
}

} // namespace QTest

class DesktopHoldRulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void eachSessionGetsItsHolds_data()
    {
        QTest::addColumn<DesktopFacts>("facts");
        QTest::addColumn<Holds>("system");
        QTest::addColumn<Holds>("display");

        const DesktopFacts kde{.logind = true,
            .kdePowerManager = true,
            .powerManagement = true,
            .screenSaver = true,
            .systemdVersion = 257};
        QTest::newRow("KDE, never logind idle") << kde << Holds{kdePowerManagement} << Holds{screenSaver};
        QTest::newRow("KDE without logind")
            << with(kde, &DesktopFacts::logind, false) << Holds{kdePowerManagement} << Holds{screenSaver};
        QTest::newRow("KDE before its screen locker")
            << with(kde, &DesktopFacts::screenSaver, false) << Holds{kdePowerManagement} << Holds{};
        QTest::newRow("KDE while its power manager restarts")
            << with(with(kde, &DesktopFacts::kdePowerManager, false), &DesktopFacts::powerManagement, false)
            << Holds{logindIdle} << Holds{screenSaver, logindIdle};

        const DesktopFacts gnome{.logind = true, .sessionManager = true, .screenSaver = true, .systemdVersion = 252};
        QTest::newRow("GNOME, MATE, Cinnamon")
            << gnome << Holds{sessionManagerSuspend, logindIdle} << Holds{sessionManagerIdle};
        QTest::newRow("GNOME on systemd 257") << with(gnome, &DesktopFacts::systemdVersion, 257)
                                              << Holds{sessionManagerSuspend, logindIdle} << Holds{sessionManagerIdle};
        QTest::newRow("GNOME without logind")
            << with(gnome, &DesktopFacts::logind, false) << Holds{sessionManagerSuspend} << Holds{sessionManagerIdle};

        const DesktopFacts xfce{
            .logind = true, .xfcePowerManager = true, .powerManagement = true, .systemdVersion = 252};
        QTest::newRow("XFCE as installed") << xfce << Holds{logindIdle} << Holds{xfcePowerManagement};
        QTest::newRow("XFCE that suspends when idle") << with(xfce, &DesktopFacts::xfceSuspendsWhenIdle, true)
                                                      << Holds{xfcePowerManagement} << Holds{xfcePowerManagement};
        QTest::newRow("XFCE on a wlroots compositor, systemd 257")
            << with(with(xfce, &DesktopFacts::idleDaemonSuspends, true), &DesktopFacts::systemdVersion, 257)
            << Holds{logindIdle} << Holds{xfcePowerManagement};

        const DesktopFacts lxqt{.logind = true, .lxqtSession = true, .systemdVersion = 257};
        QTest::newRow("LXQt on systemd 257") << lxqt << Holds{logindSleep} << Holds{logindIdle};
        QTest::newRow("LXQt on systemd 252")
            << with(lxqt, &DesktopFacts::systemdVersion, 252) << Holds{logindIdle} << Holds{logindIdle};

        QTest::newRow("LXQt on X11, systemd 252")
            << with(with(lxqt, &DesktopFacts::systemdVersion, 252), &DesktopFacts::x11Screen, true)
            << Holds{x11ScreenSaver, logindIdle} << Holds{x11ScreenSaver, logindIdle};
        QTest::newRow("LXQt on X11, systemd 257")
            << with(lxqt, &DesktopFacts::x11Screen, true) << Holds{logindSleep} << Holds{x11ScreenSaver, logindIdle};
        QTest::newRow("a window manager without a desktop on X11") << DesktopFacts{
            .logind = true, .x11Screen = true} << Holds{logindIdle} << Holds{x11ScreenSaver, logindIdle};
        QTest::newRow("an X11 session without logind")
            << DesktopFacts{.x11Screen = true} << Holds{} << Holds{x11ScreenSaver};
        QTest::newRow("XFCE on X11") << with(xfce, &DesktopFacts::x11Screen, true) << Holds{logindIdle}
                                     << Holds{xfcePowerManagement};

        const DesktopFacts sway{.logind = true, .idleDaemonSuspends = true, .systemdVersion = 257};
        QTest::newRow("swayidle on systemd 257") << sway << Holds{logindSleep} << Holds{logindIdle};
        QTest::newRow("swayidle on systemd 256")
            << with(sway, &DesktopFacts::systemdVersion, 256) << Holds{logindIdle} << Holds{logindIdle};
        QTest::newRow("swayidle, systemd unknown")
            << with(sway, &DesktopFacts::systemdVersion, 0) << Holds{logindIdle} << Holds{logindIdle};
        QTest::newRow("hypridle, COSMIC on systemd 257")
            << with(sway, &DesktopFacts::screenSaver, true) << Holds{logindSleep} << Holds{screenSaver, logindIdle};
        QTest::newRow("swayidle without logind") << with(sway, &DesktopFacts::logind, false) << Holds{} << Holds{};

        QTest::newRow("anything else") << DesktopFacts{.logind = true, .systemdVersion = 257} << Holds{logindIdle}
                                       << Holds{logindIdle};
        QTest::newRow("nothing at all") << DesktopFacts{} << Holds{} << Holds{};
    }

    void eachSessionGetsItsHolds()
    {
        QFETCH(DesktopFacts, facts);
        QTEST(DesktopHoldRules::againstSystemSleep(facts), "system");
        QTEST(DesktopHoldRules::againstDisplaySleep(facts), "display");
    }

    void someDesktopsMustBeMadeToCountIdlenessAnew_data()
    {
        QTest::addColumn<DesktopFacts>("facts");
        QTest::addColumn<Holds>("moment");

        const DesktopFacts xfce{.logind = true,
            .xfcePowerManager = true,
            .powerManagement = true,
            .x11Screen = true,
            .xfceSuspendsWhenIdle = true};
        QTest::newRow("XFCE that suspends when idle") << xfce << Holds{x11ScreenSaver};
        QTest::newRow("XFCE as installed") << with(xfce, &DesktopFacts::xfceSuspendsWhenIdle, false) << Holds{};
        QTest::newRow("XFCE on Wayland") << with(xfce, &DesktopFacts::x11Screen, false) << Holds{};
        const DesktopFacts lxqt{.logind = true, .lxqtSession = true, .x11Screen = true, .systemdVersion = 252};
        QTest::newRow("LXQt") << lxqt << Holds{x11ScreenSaver};
        QTest::newRow("LXQt on systemd 257") << with(lxqt, &DesktopFacts::systemdVersion, 257) << Holds{x11ScreenSaver};
        const DesktopFacts kde{.logind = true, .kdePowerManager = true, .powerManagement = true, .x11Screen = true};
        QTest::newRow("KDE") << kde << Holds{};
        QTest::newRow("KDE with a stray LXQt session") << with(kde, &DesktopFacts::lxqtSession, true) << Holds{};
        const DesktopFacts desktop{.logind = true, .sessionManager = true, .x11Screen = true};
        QTest::newRow("GNOME, MATE") << desktop << Holds{};
        QTest::newRow("Cinnamon") << with(desktop, &DesktopFacts::cinnamonPowerManager, true) << Holds{x11ScreenSaver};
        const DesktopFacts sway{.logind = true, .idleDaemonSuspends = true, .systemdVersion = 257};
        QTest::newRow("swayidle on systemd 257") << sway << Holds{logindIdle};
        QTest::newRow("swayidle on systemd 252, after an idle lock")
            << with(sway, &DesktopFacts::systemdVersion, 252) << Holds{};
        QTest::newRow("a window manager without a desktop")
            << DesktopFacts{.logind = true, .x11Screen = true} << Holds{};
    }

    void someDesktopsMustBeMadeToCountIdlenessAnew()
    {
        QFETCH(DesktopFacts, facts);
        QTEST(DesktopHoldRules::rearmingSystemSleep(facts), "moment");
    }

    void idleDaemonDesktopsAreKnownByName()
    {
        for (const auto* name : {u"sway", u"labwc:wlroots", u"Hyprland", u"niri", u"COSMIC", u"pop:COSMIC", u"SWAY"})
            QVERIFY(DesktopHoldRules::namesIdleDaemonDesktop(name));
        for (const auto* name : {u"", u"KDE", u"ubuntu:GNOME", u"XFCE", u"LXQt", u"swayish", u":", u"i3"})
            QVERIFY(!DesktopHoldRules::namesIdleDaemonDesktop(name));
    }

private:
    template <typename Field>
    static DesktopFacts with(DesktopFacts facts, Field DesktopFacts::*field, Field value)
    {
        facts.*field = value;
        return facts;
    }
};

QTEST_APPLESS_MAIN(DesktopHoldRulesTest)
#include "DesktopHoldRulesTest.moc"
