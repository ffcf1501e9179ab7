// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// The page of one step. It comes in from the side where the steps to come are, and goes to the side of those that were.
FocusScope {
    id: root

    required property Theme theme
    required property int step
    required property int shownStep
    required property int lastStep
    required property string title
    /// What it says besides the title, for whoever has it read out.
    required property string summary
    property int contentWidth: theme.scaled(376)
    default property alias content: column.data

    readonly property bool isShown: step === shownStep
    readonly property int side: LayoutMirroring.enabled ? -1 : 1

    anchors.fill: parent
    enabled: isShown
    opacity: isShown ? 1 : 0
    visible: isShown || opacity > 0

    Accessible.description: qsTr("Step %1 of %2. %3").arg(step + 1).arg(lastStep + 1).arg(summary)
    Accessible.focusable: true
    Accessible.name: title
    Accessible.role: Accessible.Pane
    Keys.forwardTo: [form]

    Behavior on opacity {
        NumberAnimation {
            duration: root.theme.pageDuration
            easing.type: Easing.OutCubic
        }
    }
    transform: Translate {
        x: Math.sign(root.step - root.shownStep) * root.side * root.theme.scaled(32)

        Behavior on x {
            NumberAnimation {
                duration: root.theme.pageDuration
                easing.type: Easing.OutCubic
            }
        }
    }

    Form {
        id: form

        anchors.fill: parent
        isCentered: true
        theme: root.theme

        Column {
            id: column

            anchors.horizontalCenter: parent.horizontalCenter
            spacing: root.theme.scaled(12)
            width: Math.min(parent.width, root.contentWidth)
        }
    }
}
