// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// A line with an icon that says that something is well or, in another colour, that it wants the user's attention. Screen
/// readers tell of it as it appears.
Item {
    id: root

    required property Theme theme
    required property string text
    property bool isAttentionWanted: false
    property int pixelSize: theme.bodySize

    readonly property color color: isAttentionWanted ? theme.attention : theme.awake

    implicitHeight: Math.max(label.implicitHeight, icon.height)
    implicitWidth: icon.width + theme.scaled(6) + label.implicitWidth

    Accessible.name: text
    Accessible.role: Accessible.AlertMessage

    Icon {
        id: icon

        anchors.left: parent.left
        color: root.color
        name: root.isAttentionWanted ? "exclamationmark.circle.fill" : "checkmark.circle.fill"
        theme: root.theme
        // Beside the first line, which is higher in scripts that another font has to help out with.
        y: Math.round((label.contentHeight / label.lineCount - height) / 2)
    }
    Label {
        id: label

        anchors.left: icon.right
        anchors.leftMargin: root.theme.scaled(6)
        anchors.right: parent.right
        color: root.color
        font.pixelSize: root.pixelSize
        text: root.text
        theme: root.theme
        wrapMode: Text.Wrap

        Accessible.ignored: true
    }
}
