// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// Asks whether an agent is missing.
Flow {
    id: root

    required property Theme theme
    readonly property alias link: link

    signal accepted

    spacing: theme.scaled(4)

    Label {
        id: question

        color: root.theme.secondaryText
        font.pixelSize: root.theme.captionSize
        height: link.height
        text: qsTr("Missing one?")
        theme: root.theme
        verticalAlignment: Text.AlignVCenter

        Accessible.name: text
        Accessible.role: Accessible.StaticText
    }
    LinkButton {
        id: link

        font.pixelSize: root.theme.subheadlineSize
        objectName: "requestIt"
        text: qsTr("Request it…")
        theme: root.theme

        Accessible.description: question.text

        onClicked: root.accepted()
    }
}
