// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Request

/// The content of the sheet: a title, a search, what it finds, and the request for what it does not.
Item {
    id: root

    required property Theme theme
    required property AgentRequest request

    property alias search: body.search
    property alias requesting: body.requesting
    property alias requestName: body.requestName
    property alias requestNote: body.requestNote
    property alias requestError: body.requestError
    readonly property alias sending: body.sending
    property alias sent: body.sent

    signal done

    LayoutMirroring.childrenInherit: true
    LayoutMirroring.enabled: theme.isRightToLeft

    Accessible.name: title.text
    Accessible.role: Accessible.Dialog
    Keys.onEnterPressed: done()
    Keys.onReturnPressed: done()

    SheetTitle {
        id: title

        buttonText: qsTr("Done")
        text: qsTr("Agents Tarvik detects")
        theme: root.theme
        width: parent.width

        onClicked: root.done()
    }
    AgentListBody {
        id: body

        anchors.bottom: parent.bottom
        anchors.bottomMargin: -inset
        anchors.left: parent.left
        anchors.leftMargin: -inset
        anchors.right: parent.right
        anchors.rightMargin: -inset
        anchors.top: title.bottom
        anchors.topMargin: root.theme.scaled(5)
        objectName: "agentListBody"
        request: root.request
        theme: root.theme

        onFinished: reason => title.button.forceActiveFocus(reason)
    }

    /// As if for the first time, but for a request that is not over.
    function begin() {
        body.begin();
    }
}
