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
    property alias farEnd: farEnd.data

    bottomPadding: 5
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    leftPadding: 10
    rightPadding: 10
    text: title
    topPadding: 5

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
    contentItem: Item {
        implicitHeight: Math.max(icon.height, label.implicitHeight)
        implicitWidth: icon.width + 8 + label.implicitWidth + 8 + farEnd.width
        opacity: root.enabled ? 1 : 0.5

        Icon {
            id: icon

            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            color: root.tint
            name: root.systemImage
            theme: root.theme
        }
        Label {
            id: label

            anchors.left: icon.right
            anchors.leftMargin: 8
            anchors.right: farEnd.left
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            text: root.title
            theme: root.theme
            wrapMode: Text.Wrap

            Accessible.ignored: true
        }
        Item {
            id: farEnd

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            height: childrenRect.height
            width: childrenRect.width
        }
    }
}
