// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// What the background helper is for, with the button that installs it.
OnboardingPage {
    id: root

    required property LidClosedMirror lidClosed

    summary: purpose.text + " " + option.text
    title: qsTr("Skip the password prompts")

    Icon {
        anchors.horizontalCenter: parent.horizontalCenter
        color: root.theme.accentOnSurface
        name: "key.fill"
        size: root.theme.scaled(44)
        theme: root.theme
    }
    PageText {
        font.pixelSize: root.theme.titleSize
        font.weight: Font.DemiBold
        role: Accessible.Heading
        text: root.title
        theme: root.theme
    }
    PageText {
        id: purpose

        bottomPadding: root.theme.scaled(4)
        color: root.theme.secondaryText
        font.pixelSize: root.theme.calloutSize
        text: qsTr("Install a small background helper so turning lid-closed mode on and off never asks for your admin password — and a safety watchdog can restore normal sleep if Tarvik ever quits or crashes.")
        theme: root.theme
    }
    HelperStatus {
        anchors.horizontalCenter: parent.horizontalCenter
        lidClosed: root.lidClosed
        theme: root.theme
        width: parent.width
    }
    PageText {
        id: option

        color: root.theme.tertiaryText
        font.pixelSize: root.theme.footnoteSize
        text: qsTr("Optional — Tarvik still works without it; it'll just ask for your password each time you toggle.")
        theme: root.theme
        topPadding: root.theme.scaled(4)
    }
}
