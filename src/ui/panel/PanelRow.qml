// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// What the panel's clickable rows have in common: an icon, a title, something at the far end, a highlight.
Pressable {
    id: root

    required property string title
    required property string systemImage
    property color tint: theme.secondaryText
    property bool isHighlighted: hovered && enabled
    property Item farEnd

    bottomPadding: theme.scaled(5)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    leftPadding: theme.scaled(10)
    rightPadding: theme.scaled(10)
    text: title
    topPadding: theme.scaled(5)

    background: Rectangle {
        color: root.down ? root.theme.pressed : root.isHighlighted ? root.theme.hover : "transparent"
        objectName: "highlight"
        radius: root.theme.rowRadius

        FocusRing {
            radius: parent.radius
            theme: root.theme
            visible: root.visualFocus
        }
    }
    contentItem: PanelRowContent {
        farEnd: root.farEnd
        opacity: root.enabled ? 1 : 0.5
        systemImage: root.systemImage
        theme: root.theme
        tint: root.tint
        title: root.title
    }
}
