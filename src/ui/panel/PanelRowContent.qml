// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// An icon, a title that wraps, and something at the far end.
Item {
    id: root

    required property Theme theme
    required property string title
    required property string systemImage
    required property color tint
    required property Item farEnd

    readonly property int spacing: theme.scaled(8)

    implicitHeight: Math.max(icon.height, label.implicitHeight)
    implicitWidth: icon.width + label.implicitWidth + farEndPlace.width + 2 * spacing

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
        anchors.leftMargin: root.spacing
        anchors.right: farEndPlace.left
        anchors.rightMargin: root.spacing
        anchors.verticalCenter: parent.verticalCenter
        text: root.title
        theme: root.theme
        wrapMode: Text.Wrap

        Accessible.ignored: true
    }
    Item {
        id: farEndPlace

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        children: [root.farEnd]
        height: childrenRect.height
        width: childrenRect.width
    }
}
