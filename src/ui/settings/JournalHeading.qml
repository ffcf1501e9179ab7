// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// The day that the entries below it are of.
Item {
    id: root

    required property Theme theme
    /// In ISO 8601.
    required property string day
    required property date now

    readonly property int inset: theme.scaled(12)

    implicitHeight: label.implicitHeight + theme.scaled(16)

    Accessible.name: label.text
    Accessible.role: Accessible.Heading

    Label {
        id: label

        anchors.bottom: parent.bottom
        anchors.bottomMargin: root.theme.scaled(4)
        anchors.left: parent.left
        anchors.leftMargin: root.inset
        anchors.right: parent.right
        anchors.rightMargin: root.inset
        color: root.theme.secondaryText
        font.pixelSize: root.theme.captionSize
        font.weight: Font.DemiBold
        text: Texts.day(root.day, root.now)
        theme: root.theme

        Accessible.ignored: true
    }
}
