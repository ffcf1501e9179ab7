// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// A button that looks like a part of the text beside it.
Pressable {
    id: root

    font.family: theme.fontFamily
    font.pixelSize: theme.bodySize
    implicitHeight: Math.max(theme.scaled(24), implicitContentHeight)
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    leftPadding: theme.scaled(3)
    rightPadding: theme.scaled(3)

    background: Rectangle {
        color: root.down ? root.theme.pressed : root.hovered ? root.theme.hover : "transparent"
        radius: root.theme.buttonRadius

        FocusRing {
            radius: parent.radius
            theme: root.theme
            visible: root.visualFocus
        }
    }
    contentItem: Label {
        color: root.theme.accentOnSurface
        font: root.font
        text: root.text
        theme: root.theme
        verticalAlignment: Text.AlignVCenter

        Accessible.ignored: true
    }
}
