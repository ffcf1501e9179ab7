// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// Tells how to allow the background helper on a machine whose administrator has forbidden it.
AlertWindow {
    id: root

    informativeText: qsTr("The background helper is installed, but this computer does not allow it. If its service was masked, this command allows it again:")
    message: qsTr("Allow the background helper")

    buttons: PushButton {
        isProminent: true
        objectName: "close"
        text: qsTr("Close")
        theme: root.theme

        onClicked: root.close()
    }

    CommandLine {
        command: "sudo systemctl unmask tarvik-helper.service"
        theme: root.theme
        width: parent.width
    }
    Label {
        color: root.theme.secondaryText
        lineHeight: 1.15
        text: qsTr("Otherwise ask your administrator to allow you the action “%1”. Tarvik notices when you come back.").arg("com.morvanta.Tarvik.helper.set-keep-awake")
        theme: root.theme
        width: parent.width
        wrapMode: Text.Wrap

        Accessible.name: text
        Accessible.role: Accessible.StaticText
    }
}
