// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

/// A field for one line of text.
T.TextField {
    id: root

    required property Theme theme

    bottomPadding: theme.scaled(5)
    color: theme.text
    font.family: theme.fontFamily
    font.pixelSize: theme.bodySize
    horizontalAlignment: TextInput.AlignLeft
    implicitHeight: contentHeight + topPadding + bottomPadding
    implicitWidth: theme.scaled(200)
    leftPadding: theme.scaled(8)
    placeholderTextColor: theme.tertiaryText
    rightPadding: theme.scaled(8)
    selectByMouse: true
    selectedTextColor: theme.accentText
    selectionColor: theme.accent
    topPadding: theme.scaled(5)

    Accessible.name: placeholderText
    Accessible.role: Accessible.EditableText

    background: Rectangle {
        border.color: root.activeFocus ? root.theme.focusRing : root.theme.controlOutline
        border.width: root.activeFocus ? 2 : 1
        color: root.theme.card
        radius: root.theme.buttonRadius
    }

    Label {
        /// The caret stands beside the placeholder, not on it.
        readonly property int caretWidth: 3

        color: root.placeholderTextColor
        text: root.placeholderText
        theme: root.theme
        verticalAlignment: Text.AlignVCenter
        visible: !root.length && !root.preeditText
        width: root.width - root.leftPadding - root.rightPadding - 2 * caretWidth
        x: root.leftPadding + caretWidth
        y: root.topPadding

        Accessible.ignored: true
    }
}
