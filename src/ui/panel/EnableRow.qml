// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// The switch of the whole application.
Item {
    id: root

    required property Theme theme
    required property SettingsMirror settings

    readonly property string help: qsTr("Off means Tarvik does nothing. On keeps the Mac awake while a coding agent or chosen app is running.")
    readonly property alias toggle: toggleSwitch
    readonly property alias helpTip: helpTip
    readonly property alias hovered: hover.hovered

    implicitHeight: Math.max(theme.scaled(28), label.implicitHeight + theme.scaled(8))

    Label {
        id: label

        anchors.left: parent.left
        anchors.leftMargin: root.theme.scaled(10)
        anchors.right: toggleSwitch.left
        anchors.verticalCenter: parent.verticalCenter
        font.pixelSize: root.theme.subheadlineSize
        font.weight: Font.Medium
        text: "Tarvik"
        theme: root.theme

        Accessible.ignored: true
    }
    ToggleSwitch {
        id: toggleSwitch

        anchors.right: parent.right
        anchors.rightMargin: root.theme.scaled(10)
        anchors.verticalCenter: parent.verticalCenter
        checked: root.settings.isEnabled
        theme: root.theme

        Accessible.description: root.help
        Accessible.name: label.text

        onCheckedChanged: {
            if (root.settings.isEnabled !== checked)
                root.settings.isEnabled = checked;
        }
    }
    HoverHandler {
        id: hover
    }
    // Beside the switch, which takes what is pressed on it.
    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds

        onTapped: toggleSwitch.toggle()
    }
    HelpTip {
        id: helpTip

        isMirrored: toggleSwitch.mirrored
        text: root.help
        theme: root.theme
        visible: hover.hovered
        x: (root.width - width) / 2
        y: root.height + root.theme.scaled(2)
    }
}
