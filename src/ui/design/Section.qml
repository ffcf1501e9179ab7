// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// A card with an optional heading and introduction above it and an optional explanation below.
Column {
    id: root

    required property Theme theme
    property string heading
    property string introduction
    property string footer
    default property alias rows: card.rows

    spacing: theme.scaled(8)
    width: parent ? parent.width : implicitWidth

    Label {
        font.weight: Font.DemiBold
        leftPadding: root.theme.scaled(4)
        rightPadding: root.theme.scaled(4)
        text: root.heading
        theme: root.theme
        visible: text
        width: parent.width
        wrapMode: Text.Wrap

        Accessible.name: text
        Accessible.role: Accessible.Heading
    }
    Explanation {
        color: root.theme.secondaryText
        text: root.introduction
    }
    Card {
        id: card

        theme: root.theme
        width: parent.width
    }
    Explanation {
        color: root.theme.tertiaryText
        text: root.footer
    }

    // What a component names of its surroundings cannot be declared before Qt 6.5.
    // qmllint disable unqualified
    component Explanation: Label {
        font.pixelSize: root.theme.captionSize
        leftPadding: root.theme.scaled(4)
        rightPadding: root.theme.scaled(4)
        theme: root.theme
        visible: text
        width: root.width
        wrapMode: Text.Wrap

        Accessible.name: text
        Accessible.role: Accessible.StaticText
    }
    // qmllint enable unqualified
}
