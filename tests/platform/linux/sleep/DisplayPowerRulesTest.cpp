// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/DisplayPowerRules.h"

#include "support/TestSupport.h"

using namespace Tarvik;
using enum DisplayWay;

using Ways = QList<DisplayWay>;

class DisplayPowerRulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void eachSessionHasItsWays_data()
    {
        QTest::addColumn<DisplayFacts>("facts");
        QTest::addColumn<Ways>("ways");
        const auto add = [](const char* name, const DisplayFacts& facts, const Ways& ways) {
            QTest::newRow(name) << facts << ways;
        };
        add("XFCE, MATE, Cinnamon, LXQt, none", {.x11 = true}, {x11Dpms});
        add("sway", {.wayland = true, .x11 = true}, {waylandOutputPower});
        add("GNOME on Wayland",
            {.gnomeScreenSaver = true, .gnomePowerManager = true, .mutter = true, .wayland = true, .x11 = true},
            {gnomeScreenSaver, mutterPowerSave, waylandOutputPower});
        add("GNOME on X11",
            {.gnomeScreenSaver = true, .gnomePowerManager = true, .mutter = true, .x11 = true},
            {gnomeScreenSaver, mutterPowerSave, x11Dpms});
        add("GNOME's settings daemon is away",
            {.gnomeScreenSaver = true, .mutter = true, .wayland = true},
            {mutterPowerSave, waylandOutputPower});
        add("GNOME's screen saver on another desktop", {.gnomeScreenSaver = true, .x11 = true}, {x11Dpms});
        add("KDE on Wayland",
            {.kdePowerManager = true, .kglobalaccel = true, .wayland = true, .x11 = true},
            {kdeShortcut, kscreenDoctor, waylandOutputPower});
        add("KDE on X11",
            {.kdePowerManager = true, .kglobalaccel = true, .x11 = true},
            {kdeShortcut, kscreenDoctor, x11Dpms});
        add("KDE without shortcuts", {.kdePowerManager = true, .x11 = true}, {kscreenDoctor, x11Dpms});
        add("KDE's shortcuts on another desktop", {.kglobalaccel = true, .x11 = true}, {x11Dpms});
        add("a text console", {}, {});
    }

    void eachSessionHasItsWays()
    {
        QFETCH(DisplayFacts, facts);
        QTEST(DisplayPowerRules::ways(facts), "ways");
    }
};

QTEST_GUILESS_MAIN(DisplayPowerRulesTest)
#include "DisplayPowerRulesTest.moc"
