// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

T.MenuItem {
    id: root

    required property Theme theme

    font.family: theme.fontFamily
    font.pixelSize: theme.bodySize
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    leftPadding: theme.scaled(8)
    rightPadding: theme.scaled(8)
    topPadding: theme.scaled(4)
    bottomPadding: theme.scaled(4)

    // See Pressable.
    Accessible.onPressAction: {
        if (!enabled)
            return;
        triggered();
        menu.dismiss();
    }

    background: Rectangle {
        color: root.highlighted ? root.theme.accent : "transparent"
        radius: root.theme.rowRadius
    }
    contentItem: Label {
        color: root.highlighted ? root.theme.accentText : root.theme.text
        font: root.font
        text: root.text
        theme: root.theme
        verticalAlignment: Text.AlignVCenter
    }
}
