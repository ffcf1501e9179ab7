// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Tarvik.Design
import Tarvik.Request

/// A search, what it finds, and the request for what it does not. Scrolls, to where the keyboard is, where that needs more room.
Flickable {
    id: root

    required property Theme theme
    required property AgentRequest request
    /// Around the content: rings around what has the focus, and the scroll bar.
    readonly property int inset: theme.scaled(12)

    property alias search: searchField.text
    property alias requesting: requestArea.requesting
    property alias requestName: requestArea.requestName
    property alias requestNote: requestArea.requestNote
    property alias requestError: requestArea.requestError
    readonly property alias sending: requestArea.sending
    property alias sent: requestArea.sent

    readonly property int neededHeight: found.y + theme.scaled(100) + theme.scaled(12) + requestArea.height + inset

    /// What had the focus is about to go; with the reason for which the focus goes on.
    signal finished(reason: int)

    boundsBehavior: Flickable.StopAtBounds
    clip: contentHeight > height
    contentHeight: Math.max(height, neededHeight)
    contentWidth: width
    interactive: clip

    T.ScrollBar.vertical: ScrollBar {
        theme: root.theme
    }

    onContentHeightChanged: follow()
    onHeightChanged: follow()

    SearchField {
        id: searchField

        objectName: "agentSearch"
        theme: root.theme
        width: root.width - 2 * x
        x: root.inset
        y: root.theme.scaled(5)

        Keys.onDownPressed: found.list.forceActiveFocus(Qt.TabFocusReason)
        Keys.onPressed: event => event.accepted = found.list.moveBy(event.key)
    }
    FoundAgents {
        id: found

        height: requestArea.y - root.theme.scaled(12) - y
        search: root.search
        theme: root.theme
        width: searchField.width
        x: root.inset
        y: searchField.y + searchField.height + root.theme.scaled(12)
    }
    RequestArea {
        id: requestArea

        height: implicitHeight
        objectName: "requestArea"
        request: root.request
        theme: root.theme
        width: searchField.width
        x: root.inset
        y: root.contentHeight - root.inset - height

        onActiveFocusChanged: root.follow()
        onFinished: reason => root.finished(reason)
    }

    function begin() {
        searchField.clear();
        found.list.positionViewAtBeginning();
        requestArea.begin();
        searchField.forceActiveFocus();
        follow();
    }

    function follow() {
        contentY = requestArea.activeFocus ? contentHeight - height : 0;
    }
}
