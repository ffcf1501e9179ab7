// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// A row of a list to choose from.
Pressable {
    id: root

    /// The one that Return chooses.
    property bool isCurrent: false

    focusPolicy: Qt.NoFocus
    implicitHeight: Math.max(theme.scaled(28), implicitContentHeight + theme.scaled(8))
    leftPadding: theme.scaled(8)
    rightPadding: theme.scaled(8)

    Accessible.role: Accessible.ListItem
    Accessible.selected: isCurrent

    background: Rectangle {
        color: root.down ? root.theme.pressed : root.isCurrent ? root.theme.selection : root.hovered ? root.theme.hover : "transparent"
        radius: root.theme.rowRadius
    }
    contentItem: Label {
        text: root.text
        theme: root.theme
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap

        Accessible.ignored: true
    }
}
