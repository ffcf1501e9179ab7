// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Design
import Tarvik.Settings
import Tarvik.Test
import ".."

/// How the settings are used by keyboard alone, and how they look, from left to right as well as from right to left.
Item {
    TestDesktop {
        id: desktop
    }
    TestTarvik {
        id: tarvik
    }
    TestWebService {
        id: webService
    }
    ShownTexts {
        id: shownTexts
    }
    Window {
        id: other
    }
    SettingsWindow {
        id: window

        agentCount: 29
        agentRequest: webService.request
        applications: tarvik.applications
        appearance: desktop.appearance
        hooks: tarvik.hooks
        journal: tarvik.journal
        lidClosed: tarvik.lidClosed
        status: tarvik.status
        settings: tarvik.settings
        updater: tarvik.updater

        TestCase {
            id: test

            name: "SettingsWindow"
            when: windowShown

            readonly property bool isReversed: Qt.application.layoutDirection === Qt.RightToLeft
            readonly property string longName: "An application whose name is longer than anybody would have thought of"
            readonly property var tabs: ["General", "Triggers", "Power", "Journal", "Updates"]
            readonly property var hookControls: [].concat(...["claude", "codex", "gemini", "qwen", "droid", "copilot"].map(id => [`${id}Docs`, id]))
            readonly property Item view: window.contentItem.children[0]
            readonly property Item strip: findChild(view, "tabs")
            readonly property Item page: view.currentPage

            /// What had it in the window as it was made.
            property string firstFocus

            function initTestCase() {
                window.show();
                tryVerify(() => window.activeFocusItem);
                firstFocus = window.activeFocusItem.text ?? "";
                window.close();
            }

            function init() {
                failOnWarning(/.?/);
                desktop.isAnimated = false;
                tarvik.restart();
                tarvik.allow(["Blender", longName]);
                tarvik.installApplications({"org.blender": "Blender", "org.long": longName});
                desktop.offerFiles(true);
                tarvik.set("batteryLimitEnabled", true);
                tarvik.offerUpdates();
                tarvik.setClock(new Date(2025, 11, 31, 17, 0));
                tarvik.record("paused", "Paused — battery at 15 %, which is below the level at which Tarvik stops", 20);
                window.show();
                window.requestActivate();
                tryVerify(() => window.activeFocusItem);
                open("Journal");
                open("General");
            }

            function cleanup() {
                // While the window is shown: on this platform a hidden one does not give its new size to its content.
                scaleText(1);
                window.close();
                tryVerify(() => !window.visible);
            }

            /// This platform has no use for them and says so.
            function ignoreSizeHints(count) {
                for (let index = 0; index < count; ++index)
                    ignoreWarning("This plugin does not support propagateSizeHints()");
            }

            function scaleText(scale) {
                if (window.visible && desktop.textScale !== scale)
                    ignoreSizeHints(4);
                desktop.textScale = scale;
                tryVerify(() => view.width === window.width && view.height === window.height);
            }

            function open(tab) {
                strip.show(tabs.indexOf(tab));
                draw();
            }

            /// At once, so that everything is in its place.
            function draw() {
                verify(grabImage(view));
            }

            function find(name) {
                const item = findChild(view, name);
                verify(item, name);
                return item;
            }

            function press(key, count = 1) {
                for (let index = 0; index < count; ++index)
                    keyClick(key);
            }

            /// The name of what has the keyboard's focus, all of which is to be seen.
            function focused() {
                const control = window.activeFocusItem;
                verify(control && control.visible, control);
                if (control.parent === strip.contentItem.contentItem)
                    return control.text;
                const top = control.mapToItem(page, 0, 0).y;
                verify(top >= 3 && top + control.height <= page.height - 3, `${control} at ${top}`);
                // The focus is on parts of what has a name.
                let named = control;
                while (!named.objectName || named.objectName === "toggle")
                    named = named.parent;
                return named.objectName;
            }

            function test_theFirstTabLeavesTheTabs() {
                compare(firstFocus, "General");
                compare(focused(), "General");
                press(Qt.Key_Tab);
                compare(focused(), "keepDisplayAwake");
            }

            function test_tabsChangeFromAnywhere_data() {
                const shifted = Qt.ControlModifier | Qt.ShiftModifier;
                return [
                    {tag: "Tab", next: Qt.Key_Tab, previous: Qt.Key_Backtab, backwards: shifted},
                    {tag: "Page Down", next: Qt.Key_PageDown, previous: Qt.Key_PageUp, backwards: Qt.ControlModifier},
                ];
            }

            function test_tabsChangeFromAnywhere(data) {
                press(Qt.Key_Tab, 2);
                for (const tab of ["Triggers", "Power", "Journal", "Updates", "General"]) {
                    keyClick(data.next, Qt.ControlModifier);
                    compare(tabs[view.currentTab], tab);
                    compare(focused(), tab);
                }
                keyClick(data.previous, data.backwards);
                compare(tabs[view.currentTab], "Updates");
            }

            function test_arrowsFollowTheOrderOnTheScreen() {
                press(isReversed ? Qt.Key_Left : Qt.Key_Right);
                compare(focused(), "Triggers");
                press(isReversed ? Qt.Key_Right : Qt.Key_Left, 2);
                compare(focused(), "General");
            }

            function test_tabReachesEveryControlInOrderAndShowsIt_data() {
                const rows = [];
                for (const textScale of [1, 2]) {
                    rows.push({tab: "General", controls: ["keepDisplayAwake", "launchAtLogin", "clamshellEnabled", "screenOffOnLidClose", "helperButton", "notifyOnToggle", "notifyOnPause"]});
                    rows.push({tab: "Triggers", controls: ["watchAgents", "agentListButton", ...hookControls, "watchEditors", "remove", "remove", "addApp"]});
                    rows.push({tab: "Power", controls: ["requireAC", "batteryLimitEnabled", "batteryThreshold", "enableOnAC", "pauseWhenHot"]});
                    rows.push({tab: "Journal", controls: ["entries", "copy", "clear"]});
                    rows.push({tab: "Updates", controls: ["automaticallyChecks", "automaticallyDownloads", "check"]});
                    rows.slice(-5).forEach(row => Object.assign(row, {tag: `${row.tab} with text at ${textScale}`, textScale}));
                }
                return rows;
            }

            function test_tabReachesEveryControlInOrderAndShowsIt(data) {
                scaleText(data.textScale);
                open(data.tab);
                const round = [data.tab, ...data.controls, data.tab];
                for (const [key, controls] of [[Qt.Key_Tab, round], [Qt.Key_Backtab, round.slice().reverse()]]) {
                    for (const control of controls) {
                        compare(focused(), control);
                        press(key);
                    }
                    open(data.tab);
                }
            }

            function test_spaceAndReturnSwitch() {
                press(Qt.Key_Tab);
                press(Qt.Key_Space);
                tryVerify(() => tarvik.setting("keepDisplayAwake"));
                press(Qt.Key_Return);
                tryVerify(() => !tarvik.setting("keepDisplayAwake"));
            }

            function test_keysScrollToWhatHasNoControl() {
                scaleText(1.25);
                open("Triggers");
                press(Qt.Key_End);
                compare(page.contentY, page.contentHeight - page.height);
                press(Qt.Key_PageUp);
                verify(page.contentY < page.contentHeight - page.height);
                press(Qt.Key_PageDown);
                compare(page.contentY, page.contentHeight - page.height);
                press(Qt.Key_Home);
                compare(page.contentY, 0);
            }

            function test_whatComesOfAKeyIsShown() {
                tarvik.breakHooks("qwen");
                open("Triggers");
                const row = find("qwen");
                findChild(row, "toggle").forceActiveFocus(Qt.TabFocusReason);
                page.contentY = row.mapToItem(page.contentItem, 0, row.height).y - page.height;
                draw();
                press(Qt.Key_Space);
                tryVerify(() => row.isCaptionAlarming);
                draw();
                verify(row.mapToItem(page, 0, row.height).y <= page.height);
            }

            function test_theFilesAreAskedAgainWhenTheWindowIsActivated() {
                tarvik.editHooks(["qwen"]);
                open("Triggers");
                tryVerify(() => findChild(find("qwen"), "toggle").checked);
                // Not with the test's own window, which is active together with any of its own.
                window.transientParent = null;
                other.show();
                other.requestActivate();
                tryVerify(() => !window.active);
                tarvik.editHooks([]);
                window.requestActivate();
                tryVerify(() => !findChild(find("qwen"), "toggle").checked);
                window.transientParent = other.transientParent;
                other.close();
            }

            function test_theFocusGoesOnFromARemovedApp() {
                open("Triggers");
                press(Qt.Key_Backtab, 2);
                compare(focused(), "remove");
                press(Qt.Key_Space);
                tryVerify(() => tarvik.settings.allowlist.length === 1);
                compare(tarvik.allowed(), ["Blender"]);
                compare(focused(), "remove");
                press(Qt.Key_Space);
                tryVerify(() => tarvik.settings.allowlist.length === 0);
                compare(focused(), "addApp");
            }

            function test_theFocusReturnsFromTheChooser() {
                open("Triggers");
                press(Qt.Key_Backtab);
                press(Qt.Key_Return);
                const chooser = find("appChooser");
                tryCompare(chooser, "opened", true);
                verify(findChild(chooser.contentItem, "appSearch").activeFocus);
                tryCompare(findChild(chooser.contentItem, "appBrowse"), "visible", true);
                press(Qt.Key_Tab, 3);
                verify(findChild(chooser.contentItem, "appSearch").activeFocus);
                press(Qt.Key_Escape);
                tryCompare(chooser, "visible", false);
                compare(focused(), "addApp");
                verify(window.visible);
            }

            function test_aWindowThatIsClosedComesBackWithoutItsSheet_data() {
                return [
                    {tag: "agents", button: "agentListButton", sheet: "agentListSheet"},
                    {tag: "chooser", button: "addApp", sheet: "appChooser"},
                ];
            }

            function test_aWindowThatIsClosedComesBackWithoutItsSheet(data) {
                open("Triggers");
                const button = find(data.button);
                button.forceActiveFocus(Qt.TabFocusReason);
                press(Qt.Key_Return);
                const sheet = find(data.sheet);
                tryCompare(sheet, "opened", true);
                press(Qt.Key_X);
                window.close();
                tryVerify(() => !window.visible);
                tryCompare(sheet, "visible", false);
                window.show();
                window.requestActivate();
                tryVerify(() => window.active);
                draw();
                compare(focused(), data.button);
                verify(!sheet.visible);
                press(Qt.Key_Return);
                tryCompare(sheet, "opened", true);
                verify(!shownTexts.below(sheet.contentItem).some(text => text.text === "x"));
                press(Qt.Key_Escape);
                tryCompare(sheet, "visible", false);
                verify(window.visible);
            }

            function test_theJournalIsReadByKeys() {
                open("Journal");
                press(Qt.Key_Tab);
                const list = find("entries");
                compare(list.currentIndex, 0);
                verify(list.currentItem.isCurrent);
                press(Qt.Key_Down);
                compare(list.currentIndex, 1);
                press(Qt.Key_PageDown);
                verify(list.currentIndex > 4);
                press(Qt.Key_End);
                compare(list.currentIndex, 19);
                tryVerify(() => list.atYEnd);
                press(Qt.Key_PageUp);
                verify(list.currentIndex < 17);
                press(Qt.Key_Home);
                compare(list.currentIndex, 0);
                tryVerify(() => list.atYBeginning);
            }

            function test_newEntriesAreShownWhereTheyAreLookedFor() {
                const list = find("entries");
                for (const tab of ["Journal", "General"]) {
                    view.currentTab = tabs.indexOf(tab);
                    for (let index = 0; index < 20; ++index) {
                        tarvik.record("resumed", `Plugged in on ${tab}`);
                        draw();
                    }
                    open("Journal");
                    compare(list.itemAtIndex(0)?.reason, `Plugged in on ${tab}`);
                    verify(list.atYBeginning);
                }
                list.positionViewAtIndex(10, ListView.Beginning);
                tarvik.record("off", "Off");
                draw();
                compare(list.count, 61);
                verify(!list.atYBeginning);
            }

            function test_clearingTheJournalKeepsTheFocus() {
                open("Journal");
                press(Qt.Key_Backtab);
                compare(focused(), "clear");
                press(Qt.Key_Return);
                const list = find("entries");
                tryCompare(list, "count", 0);
                // The rows that were there go later.
                tryVerify(() => window.activeFocusItem === list);
                press(Qt.Key_Tab);
                compare(focused(), "Journal");
            }

            function test_escapeAndTheDesktopsKeyClose_data() {
                return [
                    {tag: "Escape", key: Qt.Key_Escape, modifiers: Qt.NoModifier},
                    {tag: "Ctrl+W", key: Qt.Key_W, modifiers: Qt.ControlModifier},
                ];
            }

            function test_escapeAndTheDesktopsKeyClose(data) {
                press(Qt.Key_Tab);
                keyClick(data.key, data.modifiers);
                tryVerify(() => !window.visible);
            }

            function test_nothingIsClipped_data() {
                const rows = [];
                for (const textScale of [1, 1.25, 2]) {
                    for (const tab of tabs)
                        rows.push({tag: `${tab} with text at ${textScale}`, tab, textScale});
                }
                return rows;
            }

            function test_nothingIsClipped(data) {
                scaleText(data.textScale);
                open(data.tab);
                const shown = shownTexts.below(view);
                verify(shown.length > 6);
                for (const text of shown)
                    compare(shownTexts.flaw(text, view), "");
            }

            function test_theChooserShowsWholeNames() {
                open("Triggers");
                find("addApp").clicked();
                const chooser = find("appChooser");
                tryCompare(chooser, "opened", true);
                const list = findChild(chooser.contentItem, "appList");
                tryVerify(() => list.itemAtIndex(0));
                const [name] = shownTexts.below(list.itemAtIndex(0));
                compare(name.text, longName);
                compare(shownTexts.flaw(name, list), "");
                chooser.close();
                tryVerify(() => !chooser.visible);
            }

            function test_aButtonBelowATextStartsWhereThatDoes() {
                const button = find("helperButton");
                compare(isReversed ? button.x + button.width : button.x, isReversed ? button.parent.width : 0);
            }

            function test_everyTextStartsWhereReadingStarts() {
                const start = isReversed ? Text.AlignRight : Text.AlignLeft;
                for (const tab of ["General", "Triggers", "Power", "Updates"]) {
                    open(tab);
                    for (const text of shownTexts.below(page).filter(text => text.wrapMode === Text.Wrap)) {
                        compare(text.effectiveHorizontalAlignment, start, text.text);
                        compare(text.leftPadding, text.rightPadding, text.text);
                    }
                }
                open("Triggers");
                find("addApp").clicked();
                const chooser = find("appChooser");
                tryCompare(chooser, "opened", true);
                const cancel = shownTexts.below(chooser.contentItem).find(text => text.text === "Cancel");
                compare(cancel.mapToItem(chooser.contentItem, 0, 0).x < chooser.contentItem.width / 2, isReversed);
                const others = shownTexts.below(chooser.contentItem).filter(text => !["Cancel", "Other…"].includes(text.text));
                compare(others.map(text => text.text).slice(0, 2), ["Add App", "Search"]);
                const search = findChild(chooser.contentItem, "appSearch");
                compare(others[1].width, search.width - 2 * (search.leftPadding + 3));
                for (const text of [...others, search])
                    compare(text.effectiveHorizontalAlignment, start, text.text);
                chooser.close();
                tryVerify(() => !chooser.visible);
            }

            function test_theWindowGrowsWithTheTextAsFarAsTheScreenGoes() {
                compare([window.width, window.height], [480, 440]);
                scaleText(1.25);
                tryVerify(() => window.width === 600 && window.height === 550);
                scaleText(2);
                tryVerify(() => window.height > 550);
                verify(window.width <= window.screen.width, window.width);
                verify(window.height < window.screen.height, window.height);
                scaleText(1);
                tryVerify(() => window.width === 480 && window.height === 440);
            }

            function test_inAWideWindowTheContentStaysReadable() {
                ignoreSizeHints(2);
                window.maximumWidth = 2000;
                window.width = 2000;
                tryCompare(view, "width", 2000);
                for (const tab of tabs) {
                    open(tab);
                    for (const text of shownTexts.below(view)) {
                        const start = text.mapToItem(view, 0, 0).x;
                        verify(start >= 720 && start + text.width <= 1280, `${text.text} from ${start} to ${start + text.width}`);
                    }
                }
                window.maximumWidth = Qt.binding(() => window.fullWidth);
                window.width = Qt.binding(() => window.fullWidth);
                tryCompare(view, "width", 480);
            }
        }
    }
}
