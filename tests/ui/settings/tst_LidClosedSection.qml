// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Design
import Tarvik.Settings
import Tarvik.Test
import ".."

/// What the settings say and do about the lid.
Item {
    id: root

    height: 340
    width: 480

    TestDesktop {
        id: desktop
    }
    TestTarvik {
        id: tarvik
    }
    ShownTexts {
        id: shownTexts
    }
    Theme {
        id: theme

        appearance: desktop.appearance
    }
    GeneralTab {
        id: tab

        anchors.fill: parent
        lidClosed: tarvik.lidClosed
        settings: tarvik.settings
        theme: theme
    }
    TestCase {
        name: "LidClosedSection"
        when: windowShown

        readonly property string caption: "Install a background helper so toggling never asks for your admin password. Restored automatically when keep-awake ends or Tarvik quits."
        readonly property string noLid: "This computer has no lid — these settings have no effect."

        function init() {
            failOnWarning(/.?/);
            desktop.isAnimated = false;
            tarvik.restart();
            tarvik.set("clamshellEnabled", false);
            tab.contentY = 0;
            verify(grabImage(tab));
        }

        function find(name) {
            const item = findChild(tab, name);
            verify(item, name);
            return item;
        }

        function shown(name) {
            return shownTexts.below(find(name)).map(text => text.text);
        }

        function click(item, x) {
            tab.show(item);
            verify(grabImage(tab));
            mouseClick(item, x ?? item.width / 2, item.height / 2);
        }

        /// What is said of that stays for as long as no attempt succeeds.
        function failToInstall(message) {
            tarvik.play("helper missing");
            tarvik.play("install-helper");
            tarvik.play(`installed-helper ${message}`);
        }

        function test_theModeIsSwitched() {
            compare(shown("clamshellEnabled"), ["Keep running with the lid closed"]);
            click(find("clamshellEnabled"));
            tryVerify(() => tarvik.setting("clamshellEnabled"));
            tryCompare(find("clamshellEnabled"), "isOn", true);
        }

        function test_theScreensSwitchKeepsItsValueButCannotBeChangedWithoutTheMode() {
            const row = find("screenOffOnLidClose");
            const toggle = findChild(row, "toggle");
            compare(shown("screenOffOnLidClose"), ["Turn the screen off when the lid closes"]);
            click(row, 30);
            click(row, row.width - 25);
            // A screen reader does not heed that it is disabled.
            toggle.Accessible.pressAction();
            toggle.toggle();
            compare(toggle.checked, true);
            tarvik.set("clamshellEnabled", true);
            compare(toggle.checked, true);
            compare(tarvik.asked(), []);
            click(row, row.width - 25);
            tryVerify(() => !tarvik.setting("screenOffOnLidClose"));
            tryCompare(toggle, "checked", false);
            tarvik.set("screenOffOnLidClose", true);
            compare(toggle.checked, true);
        }

        function test_theHelperIsShown_data() {
            return [
                {tag: "not installed", helper: "missing", texts: [caption, "Install background helper…"], asks: "InstallHelper", done: () => tarvik.helperCalls().filter(call => call === "register").length === 2},
                {tag: "waiting for approval", helper: "unapproved", texts: ["Approve Tarvik in System Settings ▸ Login Items to finish setup.", "Open Login Items…"], asks: "InstallHelper", done: () => tarvik.shown().includes("login items")},
                {tag: "installed", helper: "installed", texts: ["Background helper active — toggles no longer ask for your password.", "Reinstall helper…"], asks: "ReinstallHelper", done: () => tarvik.helperCalls().includes("unregister")},
            ];
        }

        function test_theHelperIsShown(data) {
            tarvik.play(`helper ${data.helper}`);
            compare(shown("helper"), data.texts);
            const message = "The background helper isn’t responding.";
            failToInstall(message);
            tarvik.play(`helper ${data.helper}`);
            compare(shown("helper"), data.texts.concat(message));
            compare(find("helperError").font.pixelSize, theme.captionSize);
            compare(find("helperButton").Accessible.description, message);
            click(find("helperButton"));
            tryVerify(() => tarvik.asked().length > 0);
            compare(tarvik.asked(), [data.asks]);
            verify(data.done());
        }

        function test_whatIsWellIsGreenAndWhatIsLeftToDoIsOrange() {
            verify(Qt.colorEqual(find("installed").color, theme.awake));
            verify(Qt.colorEqual(find("needsApproval").color, theme.attention));
        }

        function test_withoutALidNoHelperIsOffered() {
            verify(!shownTexts.below(tab).some(text => text.text === noLid));
            tarvik.play("lid none");
            verify(!find("helper").visible);
            verify(shownTexts.below(tab).some(text => text.text === noLid));
            click(find("clamshellEnabled"));
            tryVerify(() => tarvik.setting("clamshellEnabled"));
        }

        function test_theKeyboardShowsTheWholeHelper() {
            failToInstall("The background helper isn’t responding.");
            tarvik.set("clamshellEnabled", true);
            findChild(find("keepDisplayAwake"), "toggle").forceActiveFocus(Qt.TabFocusReason);
            for (let presses = 0; presses < 4; ++presses)
                keyClick(Qt.Key_Tab);
            verify(find("helperButton").activeFocus);
            const helper = find("helper");
            const top = helper.mapToItem(tab, 0, 0).y;
            verify(top >= 0 && top + helper.height <= tab.height, top);
        }
    }
}
