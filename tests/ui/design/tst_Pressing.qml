// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Design
import Tarvik.Test

/// What a screen reader presses.
Item {
    id: root

    height: 300
    width: 300

    TestDesktop {
        id: desktop
    }
    Theme {
        id: theme

        appearance: desktop.appearance
    }
    Column {
        PushButton {
            id: pushButton

            theme: theme

            onClicked: test.presses += 1
        }
        IconButton {
            id: iconButton

            systemImage: "power"
            theme: theme

            onClicked: test.presses += 1
        }
        ToggleSwitch {
            id: toggleSwitch

            theme: theme

            onCheckedChanged: test.presses += 1
        }
        TabStrip {
            id: strip

            theme: theme
            width: 300

            onCurrentIndexChanged: test.presses += 1

            TabStripButton {
                systemImage: "bolt"
                theme: theme
            }
            TabStripButton {
                id: tab

                systemImage: "power"
                theme: theme
            }
        }
    }
    PopupMenu {
        theme: theme

        PopupMenuItem {
            id: menuItem

            theme: theme

            onTriggered: test.presses += 1
        }
    }
    TestCase {
        id: test

        name: "Pressing"
        when: windowShown

        property int presses

        function init() {
            failOnWarning(/.?/);
            strip.currentIndex = 0;
            presses = 0;
        }

        function test_aPressIsAClickUnlessItIsDisabled_data() {
            return [
                { tag: "push button", control: pushButton },
                { tag: "icon button", control: iconButton },
                { tag: "switch", control: toggleSwitch },
                { tag: "tab", control: tab },
                { tag: "menu item", control: menuItem }
            ];
        }

        function test_aPressIsAClickUnlessItIsDisabled(row) {
            row.control.enabled = false;
            row.control.Accessible.pressAction();
            compare(presses, 0);
            row.control.enabled = true;
            row.control.Accessible.pressAction();
            compare(presses, 1);
        }

        function test_aDisabledButtonSaysSo_data() {
            return [{ tag: "push button", control: pushButton }, { tag: "icon button", control: iconButton }];
        }

        function test_aDisabledButtonSaysSo(row) {
            row.control.enabled = false;
            compare(row.control.Accessible.description, "Not available");
            row.control.enabled = true;
            compare(row.control.Accessible.description, "");
        }

        function test_aPushButtonMayHaveAnIcon() {
            pushButton.text = "Copy";
            const width = pushButton.implicitWidth;
            pushButton.systemImage = "doc.on.doc";
            compare(pushButton.implicitWidth, width + 14 + 6);
            const [icon, label] = Array.from(pushButton.contentItem.children[0].children);
            tryCompare(icon, "status", Image.Ready);
            verify(icon.width === 14 && icon.x + icon.width < label.x);
            compare(label.truncated, false);
            // In a wider one, icon and text stay together.
            pushButton.width = width + 14 + 6 + 40;
            compare(icon.mapToItem(pushButton, 0, 0).x, pushButton.leftPadding + 20);
            compare(label.x, 14 + 6);
        }

        function test_aPressedTabHasTheFocus() {
            strip.show(0);
            tab.Accessible.pressAction();
            verify(tab.checked && tab.activeFocus);
            strip.itemAt(0).Accessible.pressAction();
            verify(strip.itemAt(0).checked && strip.itemAt(0).activeFocus);
            // One that is shown already stays so.
            strip.itemAt(0).Accessible.pressAction();
            verify(strip.itemAt(0).checked);
        }
    }
}
