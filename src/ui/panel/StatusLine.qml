// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// One text of the panel's header, which may take up to three lines.
Label {
    maximumLineCount: 3
    width: parent ? parent.width : implicitWidth
    wrapMode: Text.Wrap

    Accessible.name: text
    Accessible.role: Accessible.StaticText
}
