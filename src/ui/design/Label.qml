// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// A text as it is: never markup, whatever it contains.
Text {
    required property Theme theme

    color: theme.text
    elide: Text.ElideRight
    font.family: theme.fontFamily
    font.pixelSize: theme.bodySize
    horizontalAlignment: Text.AlignLeft
    textFormat: Text.PlainText
}
