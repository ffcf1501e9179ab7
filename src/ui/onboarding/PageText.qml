// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// A text of a page, in the middle unless the page has it otherwise.
Label {
    property int role: Accessible.StaticText

    horizontalAlignment: Text.AlignHCenter
    lineHeight: 1.15
    width: parent ? parent.width : implicitWidth
    wrapMode: Text.Wrap

    Accessible.name: text
    Accessible.role: role
}
