// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Tarvik.Design

/// Applications to choose from.
ListView {
    id: root

    required property Theme theme
    /// Objects with "bundleID" and "name".
    required property var applications

    signal chosen(var application)

    boundsBehavior: Flickable.StopAtBounds
    clip: true
    highlightMoveDuration: 0
    model: applications

    Accessible.name: qsTr("Installed applications")
    Accessible.role: Accessible.List
    T.ScrollBar.vertical: ScrollBar {
        id: bar

        theme: root.theme
    }

    // What a component names of its surroundings cannot be declared before Qt 6.5.
    // qmllint disable unqualified
    delegate: ListRow {
        required property int index
        required property var modelData

        isCurrent: ListView.isCurrentItem
        text: modelData.name
        theme: root.theme
        width: root.width - 2 * x
        x: bar.width

        onClicked: root.choose(index)
    }
    // qmllint enable unqualified

    function choose(index: int) {
        if (index >= 0 && index < applications.length)
            chosen(applications[index]);
    }
}
