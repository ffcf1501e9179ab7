// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// Why a request was not sent, or will not be. Screen readers tell of it as it appears.
Column {
    id: root

    required property Theme theme
    required property bool canSend
    required property string error
    readonly property string notice: qsTr("This copy of Tarvik can't send requests.")

    Label {
        color: root.theme.danger
        font.pixelSize: root.theme.captionSize
        objectName: "requestError"
        text: root.error
        theme: root.theme
        visible: text
        width: parent.width
        wrapMode: Text.Wrap

        Accessible.name: text
        Accessible.role: Accessible.AlertMessage
    }
    StatusLabel {
        isAttentionWanted: true
        objectName: "cannotSend"
        pixelSize: root.theme.captionSize
        text: root.notice
        theme: root.theme
        visible: !root.canSend
        width: parent.width
    }
}
