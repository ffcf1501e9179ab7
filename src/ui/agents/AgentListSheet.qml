// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Request

/// Everything that Tarvik detects, with a search, and a way to ask for what is missing. Return and Escape close it.
Sheet {
    id: root

    required property AgentRequest request

    property alias search: page.search
    property alias requesting: page.requesting
    property alias requestName: page.requestName
    property alias requestNote: page.requestNote
    property alias requestError: page.requestError
    readonly property alias sending: page.sending
    property alias sent: page.sent

    height: Math.min(parent.height - 40, theme.scaled(400))
    width: Math.min(parent.width - 40, theme.scaled(440))

    onAboutToShow: page.begin()

    AgentListPage {
        id: page

        anchors.fill: parent
        request: root.request
        theme: root.theme

        onDone: root.close()
    }
}
