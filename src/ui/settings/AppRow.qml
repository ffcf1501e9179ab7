// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Tarvik.Design

/// An application to choose from, with a tick where it has been chosen before.
T.ItemDelegate {
    id: root

    required property Theme theme
    /// Of ApplicationChoice.
    required property var application
    required property bool isAdded
    /// The one that Return chooses.
    required property bool isCurrent

    readonly property string caption: application.caption

    focusPolicy: Qt.NoFocus
    hoverEnabled: true
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: theme.scaled(5)
    leftPadding: theme.scaled(8)
    rightPadding: theme.scaled(8)
    text: application.name

    Accessible.description: isAdded ? caption ? qsTr("%1, already added").arg(caption) : qsTr("Already added") : caption
    Accessible.name: text
    Accessible.selected: isCurrent
    // In this version of Qt a press by a screen reader reaches the control but does nothing.
    Accessible.onPressAction: clicked()

    background: RowHighlight {
        isCurrent: root.isCurrent
        isHovered: root.hovered && !root.isAdded
        theme: root.theme
    }
    contentItem: AppRowContent {
        caption: root.caption
        icon: root.application.icon
        isAdded: root.isAdded
        text: root.text
        theme: root.theme
    }
}
