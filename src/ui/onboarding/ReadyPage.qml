// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// That all is done, and where to change one's mind.
OnboardingPage {
    id: root

    /// What stands between two asterisks on either side is bold.
    readonly property string body: qsTr("Nothing else to do. Whenever Tarvik is keeping your Mac awake, it now keeps going with the lid closed — turn that off under **Keep running with the lid closed** in Settings.")

    summary: plain(body)
    title: qsTr("You're all set")

    Icon {
        // The circle begins where the texts do.
        anchors.left: parent.left
        anchors.leftMargin: -Math.round(0.07 * size)
        color: root.theme.awake
        name: "checkmark.circle.fill"
        size: root.theme.scaled(44)
        theme: root.theme
    }
    PageText {
        font.pixelSize: root.theme.titleSize
        font.weight: Font.DemiBold
        horizontalAlignment: Text.AlignLeft
        role: Accessible.Heading
        text: root.title
        theme: root.theme
    }
    PageText {
        color: root.theme.secondaryText
        font.pixelSize: root.theme.calloutSize
        horizontalAlignment: Text.AlignLeft
        objectName: "body"
        text: root.styled(root.body)
        textFormat: Text.StyledText
        theme: root.theme

        Accessible.name: root.plain(root.body)
    }

    function plain(text: string): string {
        return text.replace(/\*\*/g, "");
    }

    function styled(text: string): string {
        return text.replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/\*\*(.+?)\*\*/g, "<b>$1</b>");
    }
}
