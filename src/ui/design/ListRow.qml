// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

/// A row of a list to choose from.
T.AbstractButton {
    id: root

    required property Theme theme
    /// The one that Return chooses.
    property bool isCurrent: false

    focusPolicy: Qt.NoFocus
    hoverEnabled: true
    implicitHeight: Math.max(theme.scaled(28), implicitContentHeight + theme.scaled(8))
    leftPadding: theme.scaled(8)
    rightPadding: theme.scaled(8)

    Accessible.name: text
    Accessible.role: Accessible.ListItem
    Accessible.selected: isCurrent
    // In this version of Qt a press by a screen reader reaches the control but does nothing.
    Accessible.onPressAction: clicked()

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
