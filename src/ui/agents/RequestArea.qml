// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Request

/// Asks for an agent that is missing: a question, then a form, then thanks.
FocusScope {
    id: root

    required property Theme theme
    required property AgentRequest request

    /// The form is shown.
    property bool requesting: false
    property alias requestName: form.name
    property alias requestNote: form.note
    /// What went wrong the last time; empty when nothing did.
    property string requestError
    readonly property bool sending: request.isSending
    /// The last request has been taken.
    property bool sent: false

    /// The form that has the focus is about to go; with the reason for which the focus goes on.
    signal finished(reason: int)

    implicitHeight: sent ? thanks.height : requesting ? form.implicitHeight : invitation.implicitHeight

    RequestInvitation {
        id: invitation

        theme: root.theme
        visible: !root.requesting && !root.sent
        width: parent.width

        onAccepted: {
            root.requesting = true;
            form.begin();
        }
    }
    RequestForm {
        id: form

        canSend: root.request.canSend
        error: root.requestError
        isSending: root.sending
        theme: root.theme
        visible: root.requesting && !root.sent
        width: parent.width

        onCancelled: reason => {
            root.request.cancel();
            root.forget();
            invitation.link.forceActiveFocus(reason);
        }
        onSubmitted: {
            root.requestError = "";
            root.request.send(name, note);
        }
    }
    StatusLabel {
        id: thanks

        objectName: "sent"
        text: qsTr("Thanks — we'll take a look.")
        theme: root.theme
        visible: root.sent
        width: parent.width
    }
    Connections {
        function onFailed(description: string) {
            root.requestError = description;
            form.resume();
        }

        function onSent() {
            if (form.activeFocus)
                root.finished(form.focusReason());
            root.forget();
            root.sent = true;
        }

        target: root.request
    }

    /// What was typed stays until it is sent or cancelled.
    function begin() {
        sent = false;
        if (!sending && !requestName && !requestNote)
            forget();
    }

    function forget() {
        requesting = false;
        requestName = "";
        requestNote = "";
        requestError = "";
    }
}
