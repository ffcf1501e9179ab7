// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Tarvik.Design

/// Applications to choose from.
ListView {
    id: root

    required property Theme theme
    /// Of ApplicationChoice.
    required property var applications
    /// The ids of those that have been chosen before.
    required property var addedIds

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
    delegate: AppRow {
        required property int index
        required property var modelData

        application: modelData
        isAdded: root.isAdded(modelData)
        isCurrent: ListView.isCurrentItem
        theme: root.theme
        width: root.width - 2 * x
        x: bar.width

        onClicked: root.choose(index)
    }
    // qmllint enable unqualified

    function choose(index: int) {
        if (index >= 0 && index < applications.length && !isAdded(applications[index]))
            chosen(applications[index]);
    }

    function isAdded(application: var): bool {
        return addedIds.includes(application.bundleID);
    }
}
