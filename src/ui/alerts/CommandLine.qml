// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// A command to run in a terminal, with a button that copies it.
Rectangle {
    id: root

    required property Theme theme
    required property string command

    border.color: theme.outline
    border.width: 1
    color: theme.card
    implicitHeight: Math.max(line.height, copy.height) + theme.scaled(12)
    radius: theme.buttonRadius

    TextEdit {
        id: line

        activeFocusOnPress: true
        anchors.left: parent.left
        anchors.leftMargin: root.theme.scaled(10)
        anchors.right: copy.left
        anchors.rightMargin: root.theme.scaled(8)
        anchors.verticalCenter: parent.verticalCenter
        color: root.theme.text
        font.family: "monospace"
        font.pixelSize: root.theme.subheadlineSize
        horizontalAlignment: TextEdit.AlignLeft
        objectName: "command"
        readOnly: true
        selectByMouse: true
        selectedTextColor: root.theme.accentText
        selectionColor: root.theme.accent
        text: root.command
        textFormat: TextEdit.PlainText
        wrapMode: TextEdit.Wrap

        Accessible.name: root.command
        Accessible.readOnly: true
        Accessible.role: Accessible.StaticText
    }
    PushButton {
        id: copy

        anchors.right: parent.right
        anchors.rightMargin: root.theme.scaled(6)
        anchors.verticalCenter: parent.verticalCenter
        objectName: "copy"
        text: qsTr("Copy")
        theme: root.theme

        onClicked: {
            line.selectAll();
            line.copy();
            line.deselect();
        }
    }
}
