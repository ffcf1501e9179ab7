// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// A search for one of many applications.
Item {
    id: root

    required property Theme theme
    required property ApplicationChoice choice
    /// The ids of those that have been chosen before.
    required property var addedIds

    signal chosen(var application)
    signal cancelled

    LayoutMirroring.childrenInherit: true
    LayoutMirroring.enabled: theme.isRightToLeft

    Label {
        id: heading

        font.pixelSize: root.theme.headlineSize
        font.weight: Font.DemiBold
        text: qsTr("Add App")
        theme: root.theme
        width: parent.width

        Accessible.name: text
        Accessible.role: Accessible.Heading
    }
    TextField {
        id: search

        anchors.top: heading.bottom
        anchors.topMargin: root.theme.scaled(12)
        objectName: "appSearch"
        placeholderText: qsTr("Search")
        theme: root.theme
        width: parent.width

        Keys.onDownPressed: list.incrementCurrentIndex()
        Keys.onUpPressed: list.decrementCurrentIndex()
        onAccepted: list.choose(list.currentIndex)
    }
    Rectangle {
        anchors.bottom: problem.visible ? problem.top : cancel.top
        anchors.bottomMargin: root.theme.scaled(12)
        anchors.top: search.bottom
        anchors.topMargin: root.theme.scaled(8)
        border.color: root.theme.separator
        color: root.theme.card
        radius: root.theme.cardRadius
        width: parent.width

        AppList {
            id: list

            anchors.bottomMargin: root.theme.scaled(4)
            anchors.fill: parent
            anchors.margins: 1
            anchors.topMargin: root.theme.scaled(4)
            addedIds: root.addedIds
            applications: Texts.matching(root.choice.applications, search.text)
            objectName: "appList"
            theme: root.theme

            onChosen: application => root.chosen(application)
        }
        Label {
            anchors.centerIn: parent
            color: root.theme.tertiaryText
            text: qsTr("No such application.")
            theme: root.theme
            visible: list.count === 0 && search.text

            Accessible.name: text
            Accessible.role: Accessible.StaticText
        }
    }
    Label {
        id: problem

        anchors.bottom: cancel.top
        anchors.bottomMargin: root.theme.scaled(12)
        color: root.theme.danger
        font.pixelSize: root.theme.captionSize
        objectName: "appProblem"
        text: root.choice.problem
        theme: root.theme
        visible: text
        width: parent.width
        wrapMode: Text.Wrap

        Accessible.name: text
        Accessible.role: Accessible.AlertMessage
    }
    PushButton {
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        objectName: "appBrowse"
        text: qsTr("Other…")
        theme: root.theme
        visible: root.choice.canBrowse

        onClicked: root.choice.browse()
    }
    PushButton {
        id: cancel

        anchors.bottom: parent.bottom
        anchors.right: parent.right
        text: qsTr("Cancel")
        theme: root.theme

        onClicked: root.cancelled()
    }

    /// Forgets the last search.
    function begin() {
        search.clear();
        search.forceActiveFocus();
    }
}
