// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// A group of rows on a raised surface, divided by hairlines.
Rectangle {
    id: root

    required property Theme theme
    default property alias rows: column.data

    border.color: theme.separator
    border.width: 1
    color: theme.card
    implicitHeight: column.implicitHeight
    radius: theme.cardRadius

    Column {
        id: column

        width: parent.width
    }
}
