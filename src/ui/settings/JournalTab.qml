// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Tarvik.Design

/// The history, newest first.
Item {
    id: root

    required property Theme theme
    required property QtObject journal

    signal copyText(string text)

    Rectangle {
        anchors.bottom: buttons.top
        anchors.left: parent.left
        anchors.margins: 16
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.leftMargin: 20
        anchors.rightMargin: 20
        border.color: root.theme.separator
        color: root.theme.card
        radius: root.theme.cardRadius

        Label {
            anchors.centerIn: parent
            color: root.theme.tertiaryText
            horizontalAlignment: Text.AlignHCenter
            objectName: "noEntries"
            text: qsTr("Nothing yet. Tarvik records every time it starts, stops, or pauses.")
            theme: root.theme
            visible: list.count === 0
            width: parent.width - 48
            wrapMode: Text.Wrap

            Accessible.name: text
            Accessible.role: Accessible.StaticText
        }
        ListView {
            id: list

            anchors.fill: parent
            anchors.margins: 1
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            keyNavigationEnabled: true
            activeFocusOnTab: count > 0
            model: root.journal.entries
            objectName: "entries"

            Accessible.name: qsTr("Journal")
            Accessible.role: Accessible.List
            T.ScrollBar.vertical: ScrollBar {
                theme: root.theme
            }

            delegate: JournalRow {
                theme: root.theme
                width: list.width
            }
        }
        FocusRing {
            radius: parent.radius
            theme: root.theme
            visible: list.activeFocus
        }
    }
    Row {
        id: buttons

        anchors.bottom: parent.bottom
        anchors.bottomMargin: 16
        anchors.right: parent.right
        anchors.rightMargin: 20
        spacing: 8

        PushButton {
            enabled: list.count > 0
            objectName: "copy"
            text: qsTr("Copy")
            theme: root.theme

            onClicked: root.journal.exportText()
        }
        PushButton {
            enabled: list.count > 0
            isDestructive: true
            objectName: "clear"
            text: qsTr("Clear")
            theme: root.theme

            onClicked: root.journal.clear()
        }
    }
    Connections {
        function onExported(text) {
            root.copyText(text);
        }

        target: root.journal
    }
}
