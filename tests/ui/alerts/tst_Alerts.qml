// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Alerts
import Tarvik.Test
import ".."

/// The alerts: what they say, and what their buttons and keys do.
Item {
    TestDesktop {
        id: desktop
    }
    TestTarvik {
        id: tarvik
    }
    ShownTexts {
        id: shownTexts
    }
    TextInput {
        id: pasted
    }
    RestartAlert {
        id: restart

        appearance: desktop.appearance
        lidClosed: tarvik.lidClosed
    }
    HelperApproval {
        id: approval

        appearance: desktop.appearance
    }
    TestCase {
        name: "Alerts"
        when: windowShown

        readonly property string command: "sudo systemctl unmask tarvik-helper.service"

        /// This platform has no use for the size that a window's content comes to, and says so.
        function initTestCase() {
            for (const alert of [restart, approval]) {
                ignoreWarning("This plugin does not support propagateSizeHints()");
                alert.show();
                verify(grabImage(alert.contentItem.children[0]));
                alert.close();
            }
        }

        function init() {
            failOnWarning(/.?/);
            tarvik.restart();
        }

        function cleanup() {
            restart.close();
            approval.close();
        }

        function open(alert) {
            alert.show();
            alert.requestActivate();
            tryVerify(() => alert.active && alert.activeFocusItem);
            verify(grabImage(alert.contentItem.children[0]));
        }

        function find(alert, name) {
            const item = findChild(alert.contentItem, name);
            verify(item, name);
            return item;
        }

        function shown(alert) {
            return shownTexts.below(alert.contentItem).map(text => text.text);
        }

        function test_theRestartIsOffered() {
            open(restart);
            compare(shown(restart), ["Background helper enabled", "Restart Tarvik to finish connecting to the background helper.", "Later", "Restart Now"]);
        }

        function test_returnAndAClickRestart_data() {
            return [
                {tag: "Return", act: () => keyClick(Qt.Key_Return)},
                {tag: "a click", act: () => mouseClick(find(restart, "restart"))},
            ];
        }

        function test_returnAndAClickRestart(data) {
            open(restart);
            data.act();
            verify(!restart.visible);
            tryVerify(() => tarvik.asked().includes("Relaunch"));
            tarvik.play("wait 1");
            compare(tarvik.shown(), ["relaunch"]);
        }

        function test_itCanWait_data() {
            return [
                {tag: "Later", act: () => mouseClick(find(restart, "later"))},
                {tag: "Escape", act: () => keyClick(Qt.Key_Escape)},
                {tag: "close button", act: () => restart.close()},
            ];
        }

        function test_itCanWait(data) {
            open(restart);
            data.act();
            tryVerify(() => !restart.visible);
            // A request of its own would have come before this one.
            tarvik.lidClosed.installHelper();
            tryVerify(() => tarvik.asked().length > 0);
            compare(tarvik.asked(), ["InstallHelper"]);
        }

        function test_itIsOpenedOnTheMostLikelyAnswer() {
            open(restart);
            keyClick(Qt.Key_Tab);
            compare(restart.activeFocusItem.objectName, "later");
            keyClick(Qt.Key_Escape);
            open(restart);
            compare(restart.activeFocusItem.objectName, "restart");
        }

        function test_theHelpersCommandIsCopied() {
            open(approval);
            verify(shown(approval).some(text => text.includes("com.morvanta.Tarvik.helper.set-keep-awake")));
            mouseClick(find(approval, "copy"));
            pasted.clear();
            pasted.paste();
            compare(pasted.text, command);
            compare(find(approval, "command").text, command);
            compare(find(approval, "command").selectedText, "");
        }

        function test_theApprovalIsClosed_data() {
            return [
                {tag: "Return", act: () => keyClick(Qt.Key_Return)},
                {tag: "Escape", act: () => keyClick(Qt.Key_Escape)},
                {tag: "a click", act: () => mouseClick(find(approval, "close"))},
            ];
        }

        function test_theApprovalIsClosed(data) {
            open(approval);
            data.act();
            tryVerify(() => !approval.visible);
        }

        function test_everythingFits() {
            for (const alert of [restart, approval]) {
                open(alert);
                const surface = alert.contentItem.children[0];
                for (const text of shownTexts.below(surface))
                    compare(shownTexts.flaw(text, surface), "");
            }
        }
    }
}
