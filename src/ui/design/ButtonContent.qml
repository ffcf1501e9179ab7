// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// A text with an optional icon before it.
Item {
    id: root

    required property Theme theme
    required property string text
    /// None when empty.
    required property string systemImage
    required property color color
    required property font font
    /// What the icon takes of the width.
    readonly property int iconSpace: systemImage ? icon.size + theme.scaled(6) : 0

    implicitHeight: Math.max(icon.visible ? icon.height : 0, label.implicitHeight)
    implicitWidth: label.implicitWidth + iconSpace

    // Together in the middle of a button that is wider.
    Item {
        anchors.centerIn: parent
        height: parent.height
        width: Math.min(parent.width, parent.implicitWidth)

        Icon {
            id: icon

            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            color: root.color
            name: root.systemImage
            size: root.theme.scaled(14)
            theme: root.theme
            visible: name
        }
        Label {
            id: label

            anchors.left: parent.left
            anchors.leftMargin: root.iconSpace
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            color: root.color
            font: root.font
            horizontalAlignment: Text.AlignHCenter
            text: root.text
            theme: root.theme

            Accessible.ignored: true
        }
    }
}
