// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

/// A push button; a prominent one is what the window suggests, a destructive one removes something.
T.Button {
    id: root

    required property Theme theme
    property bool isProminent: false
    property bool isDestructive: false

    readonly property color textColor: isProminent ? theme.accentText : isDestructive ? theme.danger : theme.text

    bottomPadding: theme.scaled(4)
    font.family: theme.fontFamily
    font.pixelSize: theme.bodySize
    font.weight: isProminent ? Font.DemiBold : Font.Normal
    hoverEnabled: true
    implicitHeight: Math.max(theme.scaled(28), implicitContentHeight + topPadding + bottomPadding)
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    leftPadding: theme.scaled(12)
    opacity: enabled ? 1 : 0.5
    rightPadding: theme.scaled(12)
    topPadding: theme.scaled(4)

    // In this version of Qt a press by a screen reader reaches the control but does nothing.
    Accessible.onPressAction: clicked()
    Keys.onEnterPressed: clicked()
    Keys.onReturnPressed: clicked()

    background: Rectangle {
        border.color: root.theme.outline
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
    contentItem: Label {
        color: root.textColor
        font: root.font
        horizontalAlignment: Text.AlignHCenter
        text: root.text
        theme: root.theme
        verticalAlignment: Text.AlignVCenter
    }
}
