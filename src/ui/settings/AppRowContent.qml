// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// What a row of the applications shows: icon, name, what tells it from others, and a tick. Screen readers hear it of the row.
Item {
    id: root

    required property Theme theme
    required property string icon
    required property string text
    required property string caption
    required property bool isAdded

    implicitHeight: Math.max(picture.height, texts.height)

    Image {
        id: picture

        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        fillMode: Image.PreserveAspectFit
        height: root.theme.scaled(24)
        source: `image://applications/${encodeURIComponent(root.icon)}`
        sourceSize.height: height * Screen.devicePixelRatio
        sourceSize.width: width * Screen.devicePixelRatio
        width: height

        Accessible.ignored: true
    }
    Column {
        id: texts

        anchors.left: picture.right
        anchors.leftMargin: root.theme.scaled(8)
        anchors.right: tick.left
        anchors.rightMargin: root.theme.scaled(8)
        anchors.verticalCenter: parent.verticalCenter

        Label {
            text: root.text
            theme: root.theme
            width: parent.width
            wrapMode: Text.Wrap

            Accessible.ignored: true
        }
        Label {
            color: root.theme.tertiaryText
            font.pixelSize: root.theme.captionSize
            text: root.caption
            theme: root.theme
            visible: text
            width: parent.width
            wrapMode: Text.Wrap

            Accessible.ignored: true
        }
    }
    Icon {
        id: tick

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        name: "checkmark"
        theme: root.theme
        visible: root.isAdded
    }
}
