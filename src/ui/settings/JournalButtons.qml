// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// What can be done with the history as a whole.
Row {
    id: root

    required property Theme theme
    readonly property alias isClearFocused: clear.visualFocus

    signal copyWanted
    signal clearWanted

    spacing: theme.scaled(8)

    /// Says for a while that it has been copied.
    function confirmCopy() {
        confirmation.restart();
    }

    PushButton {
        id: copy

        objectName: "copy"
        systemImage: confirmation.running ? "checkmark" : "doc.on.doc"
        text: confirmation.running ? qsTr("Copied") : qsTr("Copy")
        theme: root.theme
        // The same with either text.
        width: Math.ceil(Math.max(copyText.advanceWidth, copiedText.advanceWidth)) + iconSpace + leftPadding + rightPadding + 1

        onClicked: root.copyWanted()
    }
    PushButton {
        id: clear

        isDestructive: true
        objectName: "clear"
        systemImage: "trash"
        text: qsTr("Clear")
        theme: root.theme

        onClicked: root.clearWanted()
    }
    Timer {
        id: confirmation

        interval: 2000
    }
    TextMetrics {
        id: copyText

        font: copy.font
        text: qsTr("Copy")
    }
    TextMetrics {
        id: copiedText

        font: copy.font
        text: qsTr("Copied")
    }
}
