// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// What is asked for, with buttons to send it or not, and what went wrong. Return sends.
FocusScope {
    id: root

    required property Theme theme
    /// This copy of Tarvik has somewhere to send a request to.
    required property bool canSend
    required property bool isSending
    required property string error

    property alias name: nameField.text
    property alias note: noteField.text

    readonly property bool isComplete: canSend && !isSending && name.trim()

    signal submitted
    /// With the reason for which the focus goes on.
    signal cancelled(reason: int)

    implicitHeight: column.height

    Keys.onEnterPressed: submit()
    Keys.onReturnPressed: submit()

    Column {
        id: column

        spacing: root.theme.scaled(8)
        width: parent.width

        Field {
            id: nameField

            objectName: "requestName"
            placeholderText: qsTr("Agent or app name")
        }
        Field {
            id: noteField

            objectName: "requestNote"
            placeholderText: qsTr("The command you run it with")
        }
        RequestButtons {
            id: buttons

            isComplete: root.isComplete
            isSending: root.isSending
            obstacle: root.canSend ? root.isComplete || root.isSending ? "" : qsTr("Enter a name first.") : problem.notice
            theme: root.theme
            width: parent.width

            onCancelled: root.cancelled(root.focusReason())
            onSubmitted: root.submit()
        }
        RequestProblem {
            id: problem

            canSend: root.canSend
            error: root.error
            theme: root.theme
            visible: root.error || !root.canSend
            width: parent.width
        }
    }

    // What a component names of its surroundings cannot be declared before Qt 6.5.
    // qmllint disable unqualified
    component Field: TextField {
        readOnly: root.isSending
        theme: root.theme
        width: column.width
    }
    // qmllint enable unqualified

    function begin() {
        nameField.forceActiveFocus(Qt.TabFocusReason);
    }

    function submit() {
        if (!isComplete)
            return;
        buttons.leaveSend();
        submitted();
    }

    /// After a failure: back to the button that had the focus as the request was sent.
    function resume() {
        buttons.returnToSend();
    }

    /// Whether the focus is shown is to stay as it is.
    function focusReason(): int {
        return buttons.hasVisualFocus ? Qt.TabFocusReason : Qt.OtherFocusReason;
    }
}
