// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// Shows which control the keyboard acts on.
Rectangle {
    required property Theme theme

    anchors.fill: parent
    border.color: theme.focusRing
    border.width: theme.scaled(2)
    color: "transparent"
}
