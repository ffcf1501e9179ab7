// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// How the background helper is doing, what can be done about it, and what came of that.
CardPart {
    id: root

    required property LidClosedMirror lidClosed

    readonly property bool isInstalled: lidClosed.helperInstalled
    readonly property bool needsApproval: !isInstalled && lidClosed.helperNeedsApproval

    implicitHeight: content.height + 2 * content.y

    Column {
        id: content

        spacing: root.theme.scaled(10)
        width: parent.width - 2 * x
        x: root.inset
        y: root.inset

        StatusLabel {
            objectName: "installed"
            text: qsTr("Background helper active — toggles no longer ask for your password.")
            theme: root.theme
            visible: root.isInstalled
            width: parent.width
        }
        StatusLabel {
            isAttentionWanted: true
            objectName: "needsApproval"
            text: qsTr("Approve Tarvik in System Settings ▸ Login Items to finish setup.")
            theme: root.theme
            visible: root.needsApproval
            width: parent.width
        }
        Caption {
            objectName: "notInstalled"
            theme: root.theme
            text: qsTr("Install a background helper so toggling never asks for your admin password. Restored automatically when keep-awake ends or Tarvik quits.")
            visible: !root.isInstalled && !root.needsApproval
        }
        PushButton {
            anchors.left: parent.left
            objectName: "helperButton"
            text: root.isInstalled ? qsTr("Reinstall helper…") : root.needsApproval ? qsTr("Open Login Items…") : qsTr("Install background helper…")
            theme: root.theme

            Accessible.description: error.text

            onClicked: root.isInstalled ? root.lidClosed.reinstallHelper() : root.lidClosed.installHelper()
        }
        Caption {
            id: error

            objectName: "helperError"
            theme: root.theme
            text: root.lidClosed.lastHelperError
            visible: text

            // Screen readers tell of it as it appears.
            Accessible.role: Accessible.AlertMessage
        }
    }

    component Caption: Label {
        color: theme.secondaryText
        font.pixelSize: theme.captionSize
        width: parent ? parent.width : implicitWidth
        wrapMode: Text.Wrap

        Accessible.name: text
        Accessible.role: Accessible.StaticText
    }
}
