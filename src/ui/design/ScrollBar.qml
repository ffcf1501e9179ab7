// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

/// A thin scroll bar beside the content, there only when there is something to scroll.
T.ScrollBar {
    id: root

    required property Theme theme

    implicitHeight: 8
    implicitWidth: 8
    minimumSize: 0.1
    padding: 2
    policy: size < 1 ? T.ScrollBar.AlwaysOn : T.ScrollBar.AlwaysOff
    visible: policy === T.ScrollBar.AlwaysOn

    Accessible.ignored: true

    contentItem: Rectangle {
        color: root.hovered || root.pressed ? root.theme.tertiaryText : root.theme.switchOff
        radius: 2
    }
}
