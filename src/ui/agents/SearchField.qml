// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// A field that looks as if it searched.
TextField {
    id: root

    readonly property int iconSpace: theme.scaled(30)

    leftPadding: theme.isRightToLeft ? theme.scaled(8) : iconSpace
    placeholderText: qsTr("Search")
    rightPadding: theme.isRightToLeft ? iconSpace : theme.scaled(8)

    Icon {
        anchors.left: parent.left
        anchors.leftMargin: root.theme.scaled(8)
        anchors.verticalCenter: parent.verticalCenter
        name: "magnifyingglass"
        theme: root.theme
    }
}
