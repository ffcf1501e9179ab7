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

    implicitHeight: Math.max(icon.height, label.implicitHeight)
    implicitWidth: icon.width + 8 + label.implicitWidth + 8 + farEndPlace.width

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
        anchors.right: farEndPlace.left
        anchors.rightMargin: 8
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
