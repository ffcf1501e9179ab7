// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Request

/// What a search finds of everything that is detected, on a card.
Rectangle {
    id: root

    required property Theme theme
    required property string search
    readonly property alias list: list

    border.color: theme.separator
    color: theme.card
    radius: theme.cardRadius

    AgentList {
        id: list

        anchors.bottomMargin: root.theme.scaled(4)
        anchors.fill: parent
        anchors.margins: 1
        model: DetectedAgents {
            search: root.search
        }
        objectName: "agentList"
        theme: root.theme
    }
    FocusRing {
        radius: parent.radius
        theme: root.theme
        visible: list.activeFocus
    }
    Label {
        anchors.centerIn: parent
        color: root.theme.tertiaryText
        horizontalAlignment: Text.AlignHCenter
        text: qsTr("No such agent or editor.")
        theme: root.theme
        visible: list.count === 0
        width: parent.width - root.theme.scaled(24)
        wrapMode: Text.Wrap

        Accessible.name: text
        Accessible.role: Accessible.StaticText
    }
}
