// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// The row that starts, changes and cancels a timed session through a menu.
PanelRow {
    id: root

    required property bool isTimedSessionActive
    readonly property alias menu: sessionMenu

    /// The user has chosen a length; 0 cancels the session.
    signal chosen(int minutes)

    isHighlighted: hovered || sessionMenu.visible
    systemImage: "timer"
    title: Texts.sessionTitle(isTimedSessionActive)

    // Only newer versions of Qt tell it by the role.
    Accessible.description: qsTr("Opens a menu")
    Accessible.role: Accessible.ButtonMenu
    Keys.onLeftPressed: event => event.accepted = openTowards(true)
    Keys.onRightPressed: event => event.accepted = openTowards(false)

    farEnd: Icon {
        mirror: root.mirrored
        name: "chevron.right"
        size: root.theme.scaled(14)
        theme: root.theme

        // The tip, not what is around it, is in line with the end of the switch.
        transform: Translate {
            x: root.theme.scaled(root.mirrored ? -5 : 5)
        }
    }

    onClicked: sessionMenu.open()

    SessionMenu {
        id: sessionMenu

        property bool wasOpenedByKeyboard: false

        isMirrored: root.mirrored
        isTimedSessionActive: root.isTimedSessionActive
        theme: root.theme
        title: root.title
        x: root.mirrored ? root.theme.scaled(4) : root.width - width - root.theme.scaled(4)
        y: root.height - root.theme.scaled(2)

        onAboutToShow: wasOpenedByKeyboard = root.visualFocus
        onChosen: minutes => root.chosen(minutes)
        onClosed: {
            if (wasOpenedByKeyboard)
                root.forceActiveFocus(Qt.TabFocusReason);
        }
        onOpened: {
            if (wasOpenedByKeyboard)
                selectFrom(-1, 1);
        }
    }

    /// An arrow key opens the menu when it points where the chevron points.
    function openTowards(left: bool): bool {
        if (left === mirrored)
            sessionMenu.open();
        return left === mirrored;
    }
}
