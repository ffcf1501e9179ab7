// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// Sends a request or does not. While it is on its way, the focus is on the button that stops it.
Item {
    id: root

    required property Theme theme
    /// Why nothing can be sent now, for screen readers, which are not told that a button is disabled.
    required property string obstacle
    required property bool isComplete
    required property bool isSending

    readonly property bool hasVisualFocus: cancel.visualFocus || send.visualFocus

    /// The focus goes back to "Send".
    property bool isSendLeft: false

    signal submitted
    signal cancelled

    implicitHeight: Math.max(cancel.height, progress.height)

    Label {
        id: progress

        anchors.left: parent.left
        anchors.right: cancel.left
        anchors.rightMargin: root.theme.scaled(8)
        anchors.verticalCenter: parent.verticalCenter
        color: root.theme.secondaryText
        font.pixelSize: root.theme.captionSize
        objectName: "sending"
        text: qsTr("Sending…")
        theme: root.theme
        visible: root.isSending
        wrapMode: Text.Wrap

        Accessible.name: text
        Accessible.role: Accessible.AlertMessage
    }
    PushButton {
        id: cancel

        anchors.right: send.left
        anchors.rightMargin: root.theme.scaled(8)
        objectName: "cancelRequest"
        text: qsTr("Cancel")
        theme: root.theme

        onClicked: root.cancelled()
    }
    PushButton {
        id: send

        anchors.right: parent.right
        enabled: root.isComplete
        isProminent: true
        objectName: "sendRequest"
        text: qsTr("Send")
        theme: root.theme

        Accessible.description: root.obstacle

        onClicked: root.submitted()
    }

    function leaveSend() {
        isSendLeft = send.activeFocus;
        if (isSendLeft)
            cancel.forceActiveFocus(send.visualFocus ? Qt.TabFocusReason : Qt.OtherFocusReason);
    }

    function returnToSend() {
        if (isSendLeft && cancel.activeFocus)
            send.forceActiveFocus(cancel.visualFocus ? Qt.TabFocusReason : Qt.OtherFocusReason);
        isSendLeft = false;
    }
}
