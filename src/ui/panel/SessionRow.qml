// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Tarvik.Design

/// The row that starts, changes and cancels a timed session through a menu.
PanelRow {
    id: root

    required property bool isTimedSessionActive
    readonly property alias menu: sessionMenu

    /// The user has chosen a length; 0 cancels the session.
    signal chosen(int minutes)

    isHighlighted: hovered || sessionMenu.visible
    systemImage: "timer"
    title: isTimedSessionActive ? qsTr("Change session…") : qsTr("Keep awake for…")

    Accessible.role: Accessible.ButtonMenu
    Keys.onLeftPressed: event => event.accepted = openTowards(true)
    Keys.onRightPressed: event => event.accepted = openTowards(false)

    farEnd: Icon {
        mirror: root.mirrored
        name: "chevron.right"
        size: root.theme.scaled(14)
        theme: root.theme
    }

    onClicked: sessionMenu.open()

    PopupMenu {
        id: sessionMenu

        property bool wasOpenedByKeyboard: false

        isMirrored: root.mirrored
        theme: root.theme
        title: root.title
        x: root.mirrored ? 4 : root.width - width - 4
        y: root.height - 2

        onAboutToShow: wasOpenedByKeyboard = root.visualFocus
        onClosed: {
            if (wasOpenedByKeyboard)
                root.forceActiveFocus(Qt.TabFocusReason);
        }

        Duration {
            minutes: 10
            text: qsTr("10 minutes")
        }
        Duration {
            minutes: 60
            text: qsTr("1 hour")
        }
        Duration {
            minutes: 120
            text: qsTr("2 hours")
        }
        Duration {
            minutes: 960
            text: qsTr("All day (16 h)")
        }
    }
    // Items of a menu keep their place when they are hidden, so these two come and go.
    Instantiator {
        active: root.isTimedSessionActive

        PopupMenuSeparator {
            theme: root.theme
        }

        onObjectAdded: (index, separator) => sessionMenu.insertItem(4, separator)
        onObjectRemoved: (index, separator) => sessionMenu.removeItem(separator)
    }
    Instantiator {
        active: root.isTimedSessionActive

        Duration {
            minutes: 0
            text: qsTr("Cancel timer")
        }

        onObjectAdded: (index, entry) => sessionMenu.addItem(entry)
        onObjectRemoved: (index, entry) => sessionMenu.removeItem(entry)
    }

    component Duration: PopupMenuItem {
        required property int minutes

        theme: root.theme

        onTriggered: root.chosen(minutes)
    }

    /// An arrow key opens the menu when it points where the chevron points.
    function openTowards(left: bool): bool {
        if (left === mirrored)
            sessionMenu.open();
        return left === mirrored;
    }
}
