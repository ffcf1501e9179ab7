// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// A button that is only an icon; `text` is what screen readers call it.
Pressable {
    id: root

    required property string systemImage
    property bool isDestructive: false

    implicitHeight: theme.scaled(24)
    implicitWidth: theme.scaled(24)

    background: Rectangle {
        color: root.down ? root.theme.pressed : root.hovered ? root.theme.hover : "transparent"
        radius: root.theme.buttonRadius

        FocusRing {
            radius: parent.radius
            theme: root.theme
            visible: root.visualFocus
        }
    }
    contentItem: Item {
        Icon {
            anchors.centerIn: parent
            color: root.isDestructive ? root.theme.danger : root.theme.secondaryText
            name: root.systemImage
            theme: root.theme
        }
    }
}
