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

    property alias search: searchField.text
    property alias requesting: requestArea.requesting
    property alias requestName: requestArea.requestName
    property alias requestNote: requestArea.requestNote
    property alias requestError: requestArea.requestError
    readonly property alias sending: requestArea.sending
    property alias sent: requestArea.sent

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
    SearchField {
        id: searchField

        anchors.top: title.bottom
        anchors.topMargin: root.theme.scaled(10)
        objectName: "agentSearch"
        theme: root.theme
        width: parent.width

        Keys.onDownPressed: found.list.forceActiveFocus(Qt.TabFocusReason)
        Keys.onPressed: event => event.accepted = found.list.moveBy(event.key)
    }
    FoundAgents {
        id: found

        anchors.bottom: requestArea.top
        anchors.bottomMargin: root.theme.scaled(12)
        anchors.top: searchField.bottom
        anchors.topMargin: root.theme.scaled(12)
        search: root.search
        theme: root.theme
        visible: height > root.theme.scaled(28)
        width: parent.width
    }
    RequestArea {
        id: requestArea

        anchors.bottom: parent.bottom
        request: root.request
        theme: root.theme
        width: parent.width

        onFinished: reason => title.button.forceActiveFocus(reason)
    }

    /// As if for the first time, but for a request that is not over.
    function begin() {
        searchField.clear();
        found.list.positionViewAtBeginning();
        requestArea.begin();
        searchField.forceActiveFocus();
    }
}
