// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Tarvik.Design
import Tarvik.Request

/// The row of a card that opens the list of everything that is detected.
CardRow {
    id: root

    required property AgentRequest request

    property AgentListSheet sheet: null

    title: qsTr("Agents and editors")

    PushButton {
        id: button

        objectName: "agentListButton"
        text: qsTr("See everything we detect…")
        theme: root.theme

        onClicked: root.open()
    }
    // Few ever look at it.
    Component {
        id: component

        // What a component names of its surroundings cannot be declared before Qt 6.5.
        // qmllint disable unqualified
        AgentListSheet {
            objectName: "agentListSheet"
            parent: T.Overlay.overlay
            request: root.request
            theme: root.theme
        }
        // qmllint enable unqualified
    }

    function open() {
        // A screen reader presses without it; this is where it goes back to.
        if (!button.activeFocus)
            button.forceActiveFocus(Qt.OtherFocusReason);
        if (!sheet)
            sheet = component.createObject(root) as AgentListSheet;
        sheet.open();
    }
}
