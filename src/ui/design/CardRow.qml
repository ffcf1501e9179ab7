// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// One row of a card: a title, an optional caption below it, and a control at the far end.
Item {
    id: root

    required property Theme theme
    required property string title
    property string caption
    /// The caption tells of something that went wrong.
    property bool isCaptionAlarming: false
    /// For a row whose control is named after it.
    property bool areTextsIgnored: false
    default property alias control: controlPlace.data

    /// A click beside the control.
    signal tapped

    implicitHeight: Math.max(40, texts.height + 20, controlPlace.height + 12)
    width: parent ? parent.width : implicitWidth

    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds

        onTapped: root.tapped()
    }
    Separator {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        inset: 12
        theme: root.theme
        visible: root.y > 0
    }
    Column {
        id: texts

        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.right: controlPlace.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        opacity: root.enabled ? 1 : 0.5
        spacing: 2

        Label {
            text: root.title
            theme: root.theme
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
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        height: childrenRect.height
        width: childrenRect.width
    }
}
