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
    TestLidClosed {
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

        function test_theModeIsSwitched() {
            compare(shown("clamshellEnabled"), ["Keep running with the lid closed"]);
            click(find("clamshellEnabled"));
            tryVerify(() => tarvik.asked().includes("clamshellEnabled=true"));
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
            tarvik.setMode(true, true);
            compare(toggle.checked, true);
            compare(tarvik.asked(), []);
            click(row, row.width - 25);
            tryVerify(() => tarvik.asked().includes("screenOffOnLidClose=false"));
            tryCompare(toggle, "checked", false);
        }

        function test_theHelperIsShown_data() {
            return [
                {tag: "not installed", helper: [false, false], texts: [caption, "Install background helper…"], asks: "InstallHelper"},
                {tag: "waiting for approval", helper: [false, true], texts: ["Approve Tarvik in System Settings ▸ Login Items to finish setup.", "Open Login Items…"], asks: "InstallHelper"},
                {tag: "installed", helper: [true, false], texts: ["Background helper active — toggles no longer ask for your password.", "Reinstall helper…"], asks: "ReinstallHelper"},
            ];
        }

        function test_theHelperIsShown(data) {
            tarvik.setHelper(...data.helper, "");
            compare(shown("helper"), data.texts);
            const message = "The background helper isn’t responding.";
            tarvik.setHelper(...data.helper, message);
            compare(shown("helper"), data.texts.concat(message));
            compare(find("helperError").font.pixelSize, theme.captionSize);
            compare(find("helperButton").Accessible.description, message);
            click(find("helperButton"));
            tryVerify(() => tarvik.asked().length > 0);
            compare(tarvik.asked(), [data.asks]);
        }

        function test_whatIsWellIsGreenAndWhatIsLeftToDoIsOrange() {
            verify(Qt.colorEqual(find("installed").color, theme.awake));
            verify(Qt.colorEqual(find("needsApproval").color, theme.attention));
        }

        function test_withoutALidNoHelperIsOffered() {
            verify(!shownTexts.below(tab).some(text => text.text === noLid));
            tarvik.setLid(false);
            verify(!find("helper").visible);
            verify(shownTexts.below(tab).some(text => text.text === noLid));
            click(find("clamshellEnabled"));
            tryVerify(() => tarvik.asked().includes("clamshellEnabled=true"));
        }

        function test_theKeyboardShowsTheWholeHelper() {
            tarvik.setHelper(false, false, "The background helper isn’t responding.");
            tarvik.setMode(true, true);
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
