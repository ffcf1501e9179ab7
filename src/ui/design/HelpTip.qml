// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

/// Says what a control is for after the pointer has rested on it.
T.ToolTip {
    id: root

    required property Theme theme
    property bool isMirrored: false

    delay: 700
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    implicitWidth: theme.scaled(268)
    margins: 8
    padding: theme.scaled(8)
    timeout: 15000

    background: Rectangle {
        border.color: root.theme.outline
        color: root.theme.menu
        radius: root.theme.buttonRadius

        Shadow {
            anchors.fill: parent
            extent: 10
            radius: parent.radius
            z: -1
        }
    }
    contentItem: Label {
        color: root.theme.secondaryText
        elide: Text.ElideNone
        font.pixelSize: root.theme.captionSize
        text: root.text
        theme: root.theme
        wrapMode: Text.Wrap

        LayoutMirroring.enabled: root.isMirrored
    }
}
