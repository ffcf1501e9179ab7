// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// Which of the steps is the current one.
Row {
    id: root

    required property Theme theme
    required property int step
    required property int lastStep

    spacing: theme.scaled(6)

    Repeater {
        model: root.lastStep + 1

        // What a component names of its surroundings cannot be declared before Qt 6.5.
        // qmllint disable unqualified
        Rectangle {
            required property int index

            readonly property bool isCurrent: index === root.step

            color: isCurrent ? root.theme.accent : root.theme.secondaryText
            height: root.theme.scaled(7)
            opacity: isCurrent ? 1 : 0.3
            radius: height / 2
            width: height
        }
        // qmllint enable unqualified
    }
}
