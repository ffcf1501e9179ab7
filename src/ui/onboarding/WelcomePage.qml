// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// What lid-closed mode is for.
OnboardingPage {
    id: root

    required property url applicationIcon

    summary: subtitle.text + " " + body.text
    title: qsTr("Keep working, lid closed")

    Image {
        anchors.horizontalCenter: parent.horizontalCenter
        height: width
        source: root.applicationIcon
        sourceSize.height: height * Screen.devicePixelRatio
        sourceSize.width: width * Screen.devicePixelRatio
        width: root.theme.scaled(88)

        Accessible.ignored: true
    }
    PageText {
        font.pixelSize: root.theme.largeTitleSize
        font.weight: Font.DemiBold
        role: Accessible.Heading
        text: root.title
        theme: root.theme
    }
    PageText {
        id: subtitle

        font.pixelSize: root.theme.subtitleSize
        text: qsTr("Let agents, builds, and downloads keep running after you shut the lid.")
        theme: root.theme
    }
    PageText {
        id: body

        color: root.theme.secondaryText
        font.pixelSize: root.theme.calloutSize
        text: qsTr("macOS normally sleeps the moment you close the lid. Tarvik can override that — but it needs to install a small background helper first.")
        theme: root.theme
    }
}
