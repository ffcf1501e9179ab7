// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// How the background helper is doing, and the button for what is left to do about it.
Column {
    id: root

    required property Theme theme
    required property LidClosedMirror lidClosed

    readonly property bool needsApproval: !lidClosed.helperInstalled && lidClosed.helperNeedsApproval

    spacing: theme.scaled(10)

    StatusLabel {
        anchors.horizontalCenter: parent.horizontalCenter
        objectName: "installed"
        text: qsTr("Background helper installed and active.")
        theme: root.theme
        visible: root.lidClosed.helperInstalled
        width: Math.min(implicitWidth, parent.width)
    }
    StatusLabel {
        anchors.horizontalCenter: parent.horizontalCenter
        isAttentionWanted: true
        objectName: "needsApproval"
        text: qsTr("Approve Tarvik under System Settings ▸ Login Items, then come back here.")
        theme: root.theme
        visible: root.needsApproval
        width: Math.min(implicitWidth, parent.width)
    }
    PushButton {
        // The focus does not stay with what cannot be seen.
        enabled: visible
        anchors.horizontalCenter: parent.horizontalCenter
        isProminent: !root.needsApproval
        objectName: "install"
        text: root.needsApproval ? qsTr("Open Login Items to approve…") : qsTr("Install background helper…")
        theme: root.theme
        visible: !root.lidClosed.helperInstalled

        Accessible.description: error.text

        onClicked: root.lidClosed.installHelper()
    }
    PageText {
        id: error

        color: root.theme.secondaryText
        font.pixelSize: root.theme.footnoteSize
        objectName: "error"
        role: Accessible.AlertMessage
        text: root.lidClosed.lastHelperError
        theme: root.theme
        visible: text && !root.lidClosed.helperInstalled
    }
}
