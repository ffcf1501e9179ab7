// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

Item {
    required property Theme theme
    property int inset: theme.scaled(8)

    implicitHeight: 1

    Accessible.ignored: true

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: parent.inset
        anchors.rightMargin: parent.inset
        color: parent.theme.separator
    }
}
