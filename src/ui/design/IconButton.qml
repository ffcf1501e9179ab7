// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

/// A button that is only an icon; `text` is what screen readers call it.
T.Button {
    id: root

    required property Theme theme
    required property string systemImage
    property bool isDestructive: false

    hoverEnabled: true
    implicitHeight: theme.scaled(24)
    implicitWidth: theme.scaled(24)

    Accessible.name: text
    // In this version of Qt a press by a screen reader reaches the control but does nothing.
    Accessible.onPressAction: clicked()
    Keys.onEnterPressed: clicked()
    Keys.onReturnPressed: clicked()

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
