// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// One row of a card: a title, an optional caption below it, and a control at the far end.
Item {
    id: root

    required property Theme theme
    required property string title
    property string caption
    property bool isFirst: false
    default property alias control: controlPlace.data

    implicitHeight: Math.max(40, texts.height + 20, controlPlace.childrenRect.height + 12)
    width: parent ? parent.width : implicitWidth

    Separator {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        inset: 12
        theme: root.theme
        visible: !root.isFirst
    }
    Column {
        id: texts

        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.right: controlPlace.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        Label {
            text: root.title
            theme: root.theme
            width: parent.width
            wrapMode: Text.Wrap
        }
        Label {
            color: root.theme.tertiaryText
            font.pixelSize: root.theme.captionSize
            text: root.caption
            theme: root.theme
            visible: text
            width: parent.width
            wrapMode: Text.Wrap
        }
    }
    Item {
        id: controlPlace

        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        height: childrenRect.height
        width: childrenRect.width
    }
}
