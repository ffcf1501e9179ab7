// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// One of the things in a card, which a hairline divides from the one above.
Item {
    id: root

    required property Theme theme
    readonly property int inset: theme.scaled(12)

    width: parent ? parent.width : implicitWidth

    Separator {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        inset: root.inset
        theme: root.theme
        visible: root.y > 0
    }
}
