// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// Asks whether Tarvik shall start anew now that there is a background helper.
AlertWindow {
    id: root

    required property LidClosedMirror lidClosed

    informativeText: qsTr("Restart Tarvik to finish connecting to the background helper.")
    message: qsTr("Background helper enabled")

    buttons: [
        PushButton {
            objectName: "later"
            text: qsTr("Later")
            theme: root.theme

            onClicked: root.close()
        },
        PushButton {
            isProminent: true
            objectName: "restart"
            text: qsTr("Restart Now")
            theme: root.theme

            onClicked: {
                root.lidClosed.relaunch();
                root.close();
            }
        }
    ]
}
