// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// One row of a card: a title, an optional caption below it, and a control at the far end.
CardPart {
    id: root

    required property string title
    property string caption
    /// The caption tells of something that went wrong.
    property bool isCaptionAlarming: false
    /// For a row whose control is named after it.
    property bool areTextsIgnored: false
    default property alias control: controlPlace.data

    /// A click beside the control.
    signal tapped

    implicitHeight: Math.max(theme.scaled(40), texts.height + theme.scaled(20), controlPlace.height + theme.scaled(12))

    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds

        onTapped: root.tapped()
    }
    Column {
        id: texts

        anchors.left: parent.left
        anchors.leftMargin: root.inset
        anchors.right: controlPlace.left
        anchors.rightMargin: root.inset
        anchors.verticalCenter: parent.verticalCenter
        opacity: root.enabled ? 1 : 0.5
        spacing: 2

        Label {
            text: root.title
            theme: root.theme
            visible: text
            width: parent.width
            wrapMode: Text.Wrap

            Accessible.ignored: root.areTextsIgnored
            Accessible.name: text
            Accessible.role: Accessible.StaticText
        }
        Label {
            color: root.isCaptionAlarming ? root.theme.danger : root.theme.tertiaryText
            font.pixelSize: root.theme.captionSize
            text: root.caption
            theme: root.theme
            visible: text
            width: parent.width
            wrapMode: Text.Wrap

            Accessible.ignored: root.areTextsIgnored
            Accessible.name: text
            Accessible.role: Accessible.StaticText
        }
    }
    Item {
        id: controlPlace

        anchors.right: parent.right
        anchors.rightMargin: root.inset
        anchors.verticalCenter: parent.verticalCenter
        height: childrenRect.height
        width: childrenRect.width
    }
}
