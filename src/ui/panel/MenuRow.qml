// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// One clickable row of the panel.
PanelRow {
    id: root

    /// A secondary text at the far end; none when empty.
    property string trailing

    Accessible.description: trailing
    Accessible.role: Accessible.Button

    farEnd: Label {
        color: root.theme.secondaryText
        font.pixelSize: root.theme.subheadlineSize
        text: root.trailing
        theme: root.theme
        visible: text

        Accessible.ignored: true
    }
}
