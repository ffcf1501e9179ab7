// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// Behind a row of a list: which one Return or the keyboard is at, and which one the pointer.
Rectangle {
    id: root

    required property Theme theme
    required property bool isCurrent
    property bool isHovered: false

    // The surfaces alone are too much alike for those who want contrast.
    border.color: isCurrent ? theme.focusRing : theme.controlOutline
    border.width: !theme.isHighContrast ? 0 : isCurrent ? theme.scaled(2) : isHovered ? 1 : 0
    color: isCurrent ? theme.selection : isHovered ? theme.hover : "transparent"
    radius: theme.rowRadius
}
