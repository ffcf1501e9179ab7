// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// A push button; a prominent one is what the window suggests, a destructive one removes something.
Pressable {
    id: root

    property bool isProminent: false
    property bool isDestructive: false
    /// None when empty.
    property string systemImage

    readonly property int iconSpace: (contentItem as ButtonContent).iconSpace
    readonly property color textColor: isProminent ? theme.accentText : isDestructive ? theme.danger : theme.text

    bottomPadding: theme.scaled(4)
    font.family: theme.fontFamily
    font.pixelSize: theme.bodySize
    font.weight: isProminent ? Font.DemiBold : Font.Normal
    implicitHeight: Math.max(theme.scaled(28), implicitContentHeight + topPadding + bottomPadding)
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    leftPadding: theme.scaled(12)
    opacity: enabled ? 1 : 0.5
    rightPadding: theme.scaled(12)
    topPadding: theme.scaled(4)

    background: Rectangle {
        border.color: root.theme.controlOutline
        border.width: root.isProminent ? 0 : 1
        color: root.isProminent ? root.theme.accent : root.down ? root.theme.pressed : root.hovered ? root.theme.hover : root.theme.menu
        radius: root.theme.buttonRadius

        FocusRing {
            anchors.margins: -3
            radius: parent.radius + 3
            theme: root.theme
            visible: root.visualFocus
        }
    }
    contentItem: ButtonContent {
        color: root.textColor
        font: root.font
        systemImage: root.systemImage
        text: root.text
        theme: root.theme
    }
}
