// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// An agent with the names of its programs, or an editor.
Item {
    id: root

    required property Theme theme
    required property string label
    /// Separated by commas.
    required property string processNames
    required property bool isEditor
    /// The one that the keyboard has reached.
    property bool isCurrent: false

    readonly property int inset: theme.scaled(12)

    implicitHeight: Math.max(theme.scaled(28), name.implicitHeight + theme.scaled(10))

    Accessible.description: processNames
    Accessible.focusable: true
    Accessible.name: label
    Accessible.role: Accessible.ListItem

    RowHighlight {
        anchors.fill: parent
        anchors.leftMargin: root.theme.scaled(6)
        anchors.rightMargin: root.theme.scaled(6)
        isCurrent: root.isCurrent
        theme: root.theme
        visible: root.isCurrent
    }
    Icon {
        id: icon

        anchors.left: parent.left
        anchors.leftMargin: root.inset
        anchors.verticalCenter: parent.verticalCenter
        name: root.isEditor ? "code.window" : "terminal"
        theme: root.theme
    }
    Label {
        id: name

        anchors.left: icon.right
        anchors.leftMargin: root.theme.scaled(10)
        anchors.right: programs.left
        anchors.rightMargin: root.theme.scaled(10)
        anchors.verticalCenter: parent.verticalCenter
        text: root.label
        theme: root.theme
        wrapMode: Text.Wrap

        Accessible.ignored: true
    }
    Label {
        id: programs

        anchors.right: parent.right
        anchors.rightMargin: root.theme.scaled(14)
        anchors.verticalCenter: parent.verticalCenter
        color: root.isCurrent ? root.theme.secondaryText : root.theme.tertiaryText
        font.family: "monospace"
        font.pixelSize: root.theme.captionSize
        text: root.processNames
        theme: root.theme

        Accessible.ignored: true
    }
}
