// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// What a sheet shows, and the button that ends it.
Item {
    id: root

    required property Theme theme
    required property string text
    required property string buttonText
    readonly property alias button: button

    signal clicked

    implicitHeight: Math.max(heading.height, button.height)

    Label {
        id: heading

        anchors.left: parent.left
        anchors.right: button.left
        anchors.rightMargin: root.theme.scaled(12)
        anchors.verticalCenter: parent.verticalCenter
        font.pixelSize: root.theme.headlineSize
        font.weight: Font.DemiBold
        text: root.text
        theme: root.theme
        wrapMode: Text.Wrap

        Accessible.name: text
        Accessible.role: Accessible.Heading
    }
    PushButton {
        id: button

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        isProminent: true
        objectName: "done"
        text: root.buttonText
        theme: root.theme

        onClicked: root.clicked()
    }
}
