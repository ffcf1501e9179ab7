// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Design
import Tarvik.Panel
import Tarvik.Test

Item {
    id: root

    height: 700
    width: 700

    TestDesktop {
        id: desktop
    }
    Theme {
        id: theme

        appearance: desktop.appearance
    }
    TestTarvik {
        id: tarvik
    }
    MenuView {
        id: view

        status: tarvik.status
        height: implicitHeight
        settings: tarvik.settings
        theme: theme
        width: implicitWidth
    }
    TestCase {
        id: test

        name: "MenuView"
        when: windowShown

        property var signalled: []
        readonly property Item sessionRow: findChild(view, "sessionRow")
        readonly property Item toggle: findChild(view, "enableRow").toggle

        function initTestCase() {
            for (const name of ["lockScreen", "openSettings", "quit", "dismissed"])
                view[name].connect(() => signalled = signalled.concat(name));
        }

        function init() {
            failOnWarning(/.?/);
            desktop.isDark = false;
            desktop.textScale = 1;
            desktop.isAnimated = false;
            tarvik.restart();
            tarvik.setPower(true, 80);
            tarvik.allow(["Blender"]);
            tarvik.run(["claude", "codex"], ["Blender"]);
            view.LayoutMirroring.enabled = false;
            sessionRow.menu.close();
            tryVerify(() => !sessionRow.menu.visible);
            mouseMove(root, 690, 690);
            view.reset();
            // The rows take their places with the next frame.
            tryVerify(() => !isPolishScheduled(sessionRow.parent) && !isPolishScheduled(findChild(view, "headline").parent));
            signalled = [];
        }

        function entries(): var {
            const menu = sessionRow.menu;
            const texts = [];
            for (let index = 0; index < menu.count; ++index)
                texts.push(menu.itemAt(index).text ?? "-");
            return texts;
        }

        function openMenu() {
            mouseClick(sessionRow);
            const menu = sessionRow.menu;
            tryVerify(() => menu.opened && menu.itemAt(menu.count - 1).y > 0);
        }

        function test_thePanelIs300PointsWide() {
            compare(view.implicitWidth, 300);
            compare(sessionRow.x, 6);
            compare(sessionRow.width, 288);
            compare(sessionRow.leftPadding, 10);
            compare(sessionRow.rightPadding, 10);
            compare(sessionRow.topPadding, 5);
            compare(sessionRow.bottomPadding, 5);
            compare(findChild(sessionRow, "highlight").radius, 5);
            compare(findChild(view, "lockRow").y - sessionRow.y - sessionRow.height, 6);
            compare(view.implicitHeight, findChild(view, "quitRow").y + findChild(view, "quitRow").height + 6);
        }

        function test_theHeaderShowsTheCoordinatorsTexts() {
            compare(findChild(view, "headline").text, "Awake · 2 agents, 1 app");
            compare(findChild(view, "subtitle").text, "Claude Code, Codex +1 more");
            compare(findChild(view, "details").text, "charging 80%");
            const dot = findChild(view, "dot");
            compare(dot.period, 1.6);
            compare(dot.width, 9);
            compare(dot.parent.width, 22);
            compare(dot.parent.height, 22);
            const texts = findChild(view, "headline").parent;
            compare(texts.x - dot.parent.x - dot.parent.width, 10);
        }

        function test_emptyDetailsShowNoThirdLine() {
            const before = view.implicitHeight;
            verify(findChild(view, "details").visible);
            tarvik.setPower(true);
            verify(!findChild(view, "details").visible);
            tryVerify(() => view.implicitHeight < before);
        }

        function test_textsAreNeverMarkup() {
            for (const name of ["headline", "subtitle", "details"])
                compare(findChild(view, name).textFormat, Text.PlainText);
        }

        function test_theRowsReadAsTheyShould() {
            compare(sessionRow.systemImage, "timer");
            const rows = ["lockRow", "settingsRow", "quitRow"].map(name => findChild(view, name));
            compare(rows.map(row => row.title), ["Lock & leave", "Settings…", "Quit Tarvik"]);
            compare(rows.map(row => row.systemImage), ["lock.display", "gearshape", "power"]);
            compare(rows.map(row => row.trailing), ["", "", ""]);
            for (const row of rows)
                compare(row.tint, theme.secondaryText);
        }

        function test_withoutASessionThereIsNothingToCancel() {
            compare(sessionRow.title, "Keep awake for…");
            compare(entries(), ["10 minutes", "1 hour", "2 hours", "All day (16 h)"]);
        }

        function test_withASessionTheMenuEndsWithCancel() {
            tarvik.setTimedSession(10);
            compare(sessionRow.title, "Change session…");
            compare(entries(), ["10 minutes", "1 hour", "2 hours", "All day (16 h)", "-", "Cancel timer"]);
            tarvik.setTimedSession(0);
            compare(entries().length, 4);
        }

        function test_theMenuFollowsTheSessionWhileItIsOpen() {
            openMenu();
            tarvik.setTimedSession(10);
            compare(entries().length, 6);
            tarvik.setTimedSession(0);
            compare(entries().length, 4);
        }

        function test_anEntryStartsItsSession_data() {
            return [
                { tag: "10 minutes", index: 0, minutes: 10 },
                { tag: "1 hour", index: 1, minutes: 60 },
                { tag: "2 hours", index: 2, minutes: 120 },
                { tag: "All day (16 h)", index: 3, minutes: 960 }
            ];
        }

        function test_anEntryStartsItsSession(row) {
            openMenu();
            mouseClick(sessionRow.menu.itemAt(row.index));
            tryCompare(tarvik.status, "reason", `Awake — ${row.minutes + 1} min left`);
            tryVerify(() => !sessionRow.menu.visible);
            compare(signalled, []);
        }

        function test_oneHourReplacesARunningSession() {
            tarvik.setTimedSession(10);
            openMenu();
            mouseClick(sessionRow.menu.itemAt(1));
            tryCompare(tarvik.status, "reason", "Awake — 61 min left");
        }

        function test_cancelTimerEndsTheSession() {
            tarvik.setTimedSession(10);
            openMenu();
            mouseClick(sessionRow.menu.itemAt(5));
            tryVerify(() => !tarvik.status.isTimedSessionActive);
            compare(tarvik.status.reason, "Awake · 2 agents, 1 app");
        }

        function test_theSwitchShowsAndWritesTheSetting() {
            verify(toggle.checked);
            mouseClick(toggle);
            tryVerify(() => !tarvik.setting("isEnabled"));
            verify(!toggle.checked);
            tarvik.set("isEnabled", true);
            verify(toggle.checked);
            mouseClick(toggle);
            tryVerify(() => !tarvik.setting("isEnabled"));
        }

        function test_aClickOnItsNameFlipsTheSwitch() {
            const row = findChild(view, "enableRow");
            mouseClick(row, 25, row.height / 2);
            tryVerify(() => !tarvik.setting("isEnabled"));
            verify(!toggle.checked);
            mouseClick(row, 25, row.height / 2);
            tryVerify(() => tarvik.setting("isEnabled"));
        }

        function test_aSwitchThatAScreenReaderFlipsWritesToo() {
            toggle.toggle();
            tryVerify(() => !tarvik.setting("isEnabled"));
        }

        function test_theDotStopsWhenTheCoordinatorSaysSo() {
            desktop.isAnimated = true;
            const dot = findChild(view, "dot");
            toggle.toggle();
            compare(tarvik.settings.isEnabled, false);
            verify(dot.isRunning);
            tryVerify(() => !tarvik.status.isAwake);
            verify(!dot.isRunning);
        }

        function test_lockAndLeaveLocksAndThenCloses() {
            mouseClick(findChild(view, "lockRow"));
            compare(signalled, ["lockScreen", "dismissed"]);
        }

        function test_settingsOpensAndThenCloses() {
            mouseClick(findChild(view, "settingsRow"));
            compare(signalled, ["openSettings", "dismissed"]);
        }

        function test_quitOnlyAsks() {
            mouseClick(findChild(view, "quitRow"));
            compare(signalled, ["quit"]);
        }

        function test_aRowIsHighlightedUnderThePointer() {
            const row = findChild(view, "settingsRow");
            compare(findChild(row, "highlight").color, "#00000000");
            mouseMove(row, row.width / 2, row.height / 2);
            tryVerify(() => row.hovered);
            compare(findChild(row, "highlight").color, theme.hover);
            verify(!view.sessionHovered);
            mouseMove(sessionRow, sessionRow.width / 2, sessionRow.height / 2);
            tryVerify(() => view.sessionHovered);
            compare(findChild(sessionRow, "highlight").color, theme.hover);
            tryCompare(findChild(row, "highlight"), "color", "#00000000");
        }

        function focusedName(): string {
            return Window.activeFocusItem === toggle ? "toggle" : Window.activeFocusItem.objectName;
        }

        function test_arrowsWalkThroughTheControls() {
            const seen = [];
            for (let step = 0; step < 5; ++step) {
                keyClick(Qt.Key_Down);
                seen.push(focusedName());
            }
            compare(seen, ["toggle", "sessionRow", "lockRow", "settingsRow", "quitRow"]);
            keyClick(Qt.Key_Up);
            compare(focusedName(), "settingsRow");
        }

        function test_theRingIsForTheKeyboardOnly() {
            const row = findChild(view, "quitRow");
            mouseClick(row);
            verify(!row.visualFocus);
            keyClick(Qt.Key_Tab);
            verify(view.Window.activeFocusItem.visualFocus);
            view.reset();
            verify(!toggle.visualFocus);
        }

        function test_keysPressTheFocusedRow_data() {
            return [{ tag: "Space", key: Qt.Key_Space }, { tag: "Return", key: Qt.Key_Return }, { tag: "Enter", key: Qt.Key_Enter }];
        }

        function test_keysPressTheFocusedRow(row) {
            findChild(view, "lockRow").forceActiveFocus(Qt.TabFocusReason);
            keyClick(row.key);
            compare(signalled, ["lockScreen", "dismissed"]);
            toggle.forceActiveFocus(Qt.TabFocusReason);
            keyClick(row.key);
            tryVerify(() => !tarvik.setting("isEnabled"));
        }

        function test_theMenuIsUsedByKeyboard_data() {
            return [{ tag: "Return", key: Qt.Key_Return }, { tag: "Space", key: Qt.Key_Space }, { tag: "Right", key: Qt.Key_Right }];
        }

        function test_theMenuIsUsedByKeyboard(row) {
            sessionRow.forceActiveFocus(Qt.TabFocusReason);
            keyClick(row.key);
            tryVerify(() => sessionRow.menu.opened);
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Return);
            tryCompare(tarvik.status, "reason", "Awake — 61 min left");
            tryVerify(() => !sessionRow.menu.visible);
            compare(signalled, []);
        }

        function selected(): string {
            const menu = sessionRow.menu;
            const entry = menu.itemAt(menu.currentIndex);
            if (!entry)
                return "";
            // It looks selected, and the keys go to it.
            verify(entry.highlighted && entry.activeFocus);
            compare(entry.background.color, theme.accent);
            compare(entry.contentItem.color, theme.accentText);
            return entry.text;
        }

        function test_theMenuIsWalkedThroughByKeys() {
            tarvik.setTimedSession(10);
            sessionRow.forceActiveFocus(Qt.TabFocusReason);
            for (let round = 0; round < 2; ++round) {
                keyClick(Qt.Key_Return);
                tryVerify(() => sessionRow.menu.opened);
                for (const [key, entry] of [[0, "10 minutes"], [Qt.Key_Up, "Cancel timer"], [Qt.Key_Up, "All day (16 h)"], [Qt.Key_End, "Cancel timer"],
                    [Qt.Key_Down, "10 minutes"], [Qt.Key_Down, "1 hour"], [Qt.Key_Home, "10 minutes"], [Qt.Key_Down, "1 hour"]]) {
                    if (key)
                        keyClick(key);
                    compare(selected(), entry);
                }
                keyClick(Qt.Key_Escape);
                tryVerify(() => !sessionRow.menu.visible);
            }
        }

        function test_aMenuOpenedByMouseHasNothingSelectedYet_data() {
            return [{ tag: "Up", key: Qt.Key_Up, entry: "All day (16 h)" }, { tag: "Down", key: Qt.Key_Down, entry: "10 minutes" },
                { tag: "End", key: Qt.Key_End, entry: "All day (16 h)" }, { tag: "Home", key: Qt.Key_Home, entry: "10 minutes" }];
        }

        function test_aMenuOpenedByMouseHasNothingSelectedYet(row) {
            openMenu();
            compare(selected(), "");
            keyClick(row.key);
            compare(selected(), row.entry);
        }

        function test_escapeClosesTheMenuFirstAndThenThePanel() {
            sessionRow.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Return);
            tryVerify(() => sessionRow.menu.opened);
            keyClick(Qt.Key_Escape);
            tryVerify(() => !sessionRow.menu.visible);
            compare(signalled, []);
            verify(sessionRow.visualFocus);
            keyClick(Qt.Key_Escape);
            compare(signalled, ["dismissed"]);
        }

        function test_fromRightToLeftEverythingIsMirrored() {
            const icon = sessionRow.contentItem.children[0];
            const before = icon.x;
            view.LayoutMirroring.enabled = true;
            verify(icon.x > before + 200);
            verify(toggle.x < 20);
            verify(toggle.visualPosition === 0);
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Left);
            tryVerify(() => sessionRow.menu.opened);
        }

        function middle(item: Item): point {
            return item.mapToItem(view, item.width / 2, item.height / 2);
        }

        function test_thingsAreInLine_data() {
            return [{ tag: "from left to right", isMirrored: false }, { tag: "from right to left", isMirrored: true }];
        }

        function test_thingsAreInLine(row) {
            view.LayoutMirroring.enabled = row.isMirrored;
            const icon = sessionRow.contentItem.children[0];
            // Nine pixels have no middle between two.
            verify(Math.abs(middle(findChild(view, "dot")).x - middle(icon).x) <= 0.5);
            // The tip of the chevron, which ends before its picture does.
            const chevron = sessionRow.farEnd;
            const blank = chevron.width * (16 - 10.6) / 16;
            const end = row.isMirrored ? chevron.mapToItem(view, blank, 0).x : chevron.mapToItem(view, chevron.width - blank, 0).x;
            const edge = row.isMirrored ? toggle.mapToItem(view, 0, 0).x : toggle.mapToItem(view, toggle.width, 0).x;
            verify(Math.abs(end - edge) < 0.5, `${end} ${edge}`);
        }

        function test_everythingIsTwiceAsLargeWithItsText() {
            const sizes = () => {
                const dot = findChild(view, "dot");
                const lock = findChild(view, "lockRow");
                const headline = findChild(view, "headline");
                const texts = headline.parent;
                openMenu();
                const entry = sessionRow.menu.itemAt(1);
                const found = {
                    panel: view.implicitWidth, dot: dot.width, dotFrame: dot.parent.width, dotFrameX: dot.parent.x, textsX: texts.x,
                    textsSpacing: texts.spacing, row: sessionRow.x, rowPadding: sessionRow.leftPadding, rowTop: sessionRow.topPadding,
                    rowGap: lock.y - sessionRow.y - sessionRow.height, iconGap: lock.contentItem.spacing, icon: lock.contentItem.children[0].width,
                    toggle: toggle.width, toggleHeight: toggle.height, chevron: sessionRow.farEnd.width, menuPadding: sessionRow.menu.padding,
                    entryPadding: entry.leftPadding, entryTop: entry.topPadding, radius: findChild(lock, "highlight").radius
                };
                sessionRow.menu.close();
                tryVerify(() => !sessionRow.menu.visible);
                return found;
            };
            const once = sizes();
            desktop.textScale = 2;
            tryVerify(() => !isPolishScheduled(sessionRow.parent));
            const twice = sizes();
            for (const [name, pixels] of Object.entries(once))
                compare(twice[name], 2 * pixels, name);
        }

        function test_textAtTwiceTheSizeFits() {
            tarvik.set("requireAC", true);
            tarvik.setPower(false, 80);
            compare(tarvik.status.reason, "Paused — on battery");
            desktop.textScale = 2;
            compare(view.implicitWidth, 600);
            for (const name of ["headline", "subtitle", "details"])
                verify(!findChild(view, name).truncated, name);
            for (const name of ["lockRow", "settingsRow", "quitRow", "sessionRow"]) {
                const row = findChild(view, name);
                verify(row.height >= row.contentItem.implicitHeight + 10, name);
            }
        }

        function test_screenReadersAreToldWhatEverythingIs() {
            compare(toggle.Accessible.name, "Tarvik");
            compare(toggle.Accessible.role, Accessible.CheckBox);
            compare(toggle.Accessible.description, "Off means Tarvik does nothing. On keeps the Mac awake while a coding agent or chosen app is running.");
            compare(sessionRow.Accessible.role, Accessible.ButtonMenu);
            compare(sessionRow.Accessible.name, "Keep awake for…");
            compare(sessionRow.Accessible.description, "Opens a menu");
            for (const name of ["lockRow", "settingsRow", "quitRow"]) {
                const row = findChild(view, name);
                compare(row.Accessible.role, Accessible.Button);
                compare(row.Accessible.name, row.title);
            }
            compare(sessionRow.parent.parent.Accessible.description, "Awake · 2 agents, 1 app");
            compare(findChild(view, "headline").Accessible.role, Accessible.Heading);
            compare(findChild(view, "headline").Accessible.description, "F1 says why");
            for (const name of ["headline", "subtitle", "details"])
                compare(findChild(view, name).Accessible.name, findChild(view, name).text);
            compare(findChild(view, "details").Accessible.name, "charging 80%");
        }

        function test_aScreenReadersPressIsAClick() {
            findChild(view, "quitRow").Accessible.pressAction();
            compare(signalled, ["quit"]);
            sessionRow.Accessible.pressAction();
            tryVerify(() => sessionRow.menu.opened);
            sessionRow.menu.itemAt(2).Accessible.pressAction();
            tryCompare(tarvik.status, "reason", "Awake — 121 min left");
            tryVerify(() => !sessionRow.menu.visible);
        }

        readonly property string why: "Tarvik keeps this computer awake because work is going on: Claude Code, Codex, Blender.\n"
            + "When this computer slept last is not known."

        function test_aPointerThatRestsOnTheHeaderIsToldWhy() {
            const headline = findChild(view, "headline");
            mouseMove(headline, 5, 5);
            tryVerify(() => view.tip.visible);
            compare(view.tip.text, why);
            compare(tarvik.explanations(), 1);
            mouseMove(root, 690, 690);
            tryVerify(() => !view.tip.visible);
            compare(tarvik.status.why.answer, "");
            mouseMove(headline, 5, 5);
            tryVerify(() => view.tip.visible);
            compare(tarvik.explanations(), 2);
            compare(signalled, []);
        }

        function test_aPointerThatOnlyPassesAsksNothing() {
            const headline = findChild(view, "headline");
            const row = findChild(view, "enableRow");
            for (let times = 0; times < 3; ++times) {
                mouseMove(headline, 5, 5);
                mouseMove(row, 40, row.height / 2);
            }
            tryVerify(() => row.helpTip.visible);
            compare(tarvik.explanations(), 0);
        }

        function test_theKeyboardIsToldWhyAndSoIsAScreenReader() {
            const announcement = view.announcement;
            keyClick(Qt.Key_F1);
            tryVerify(() => view.tip.visible);
            compare(view.tip.text, why);
            tryCompare(announcement.Accessible, "name", why);
            keyClick(Qt.Key_F1);
            tryVerify(() => !view.tip.visible);
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_F1);
            tryVerify(() => view.tip.visible);
            compare(focusedName(), "toggle");
            keyClick(Qt.Key_Escape);
            tryVerify(() => !view.tip.visible);
            compare(signalled, []);
            keyClick(Qt.Key_Escape);
            compare(signalled, ["dismissed"]);
        }

        function test_whatDoesNotFitIsInTheTipAsWell() {
            desktop.textScale = 2;
            tarvik.allow([String("A very long name of an application ").repeat(20)]);
            tarvik.run(["claude"], tarvik.allowed());
            tryVerify(() => findChild(view, "subtitle").truncated);
            keyClick(Qt.Key_F1);
            tryVerify(() => view.tip.text.startsWith(`${tarvik.status.reason}\n${tarvik.status.subtitle}\ncharging 80%\n\nTarvik keeps`));
        }

        function test_theHelpTextShowsUnderThePointer() {
            const row = findChild(view, "enableRow");
            compare(row.help, toggle.Accessible.description);
            tryVerify(() => !row.hovered);
            mouseMove(row, 40, row.height / 2);
            tryVerify(() => row.hovered);
            tryVerify(() => row.helpTip.visible);
            compare(row.helpTip.text, row.help);
        }
    }
}
