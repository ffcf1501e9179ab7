// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// The status light and up to three lines beside it.
Item {
    id: root

    required property Theme theme
    required property bool isAwake
    required property string headline
    required property string subtitle
    required property string details
    required property WhyMirror why

    /// Something of the texts does not fit; the tip then has all of them.
    readonly property bool isCut: headlineText.truncated || subtitleText.truncated || detailsText.truncated
    readonly property alias tip: tip

    implicitHeight: texts.height + 2 * texts.y

    HoverHandler {
        id: hover

        onHoveredChanged: tip.isWanted = false
    }
    // Other programs have to be asked for it, so not for a pointer that is only passing.
    Timer {
        interval: 700
        running: hover.hovered

        onTriggered: tip.isWanted = true
    }
    WhyTip {
        id: tip

        isMirrored: root.LayoutMirroring.enabled
        preface: root.isCut ? `${root.headline}\n${root.subtitle}\n${root.details}`.trim() : ""
        theme: root.theme
        why: root.why
        x: (root.width - width) / 2
        y: root.height + root.theme.scaled(2)
    }
    Item {
        id: dotFrame

        anchors.left: parent.left
        // The light is above the icons of the rows.
        anchors.leftMargin: root.theme.scaled(10) + Math.round((root.theme.iconSize - width) / 2)
        height: root.theme.scaled(22)
        width: height
        y: texts.y + (headlineText.firstLineHeight - height) / 2

        PulsingDot {
            active: root.isAwake
            anchors.centerIn: parent
            objectName: "dot"
            period: 1.6
            theme: root.theme
        }
    }
    Column {
        id: texts

        anchors.left: dotFrame.right
        anchors.leftMargin: root.theme.scaled(10)
        anchors.right: parent.right
        anchors.rightMargin: root.theme.scaled(10)
        spacing: root.theme.scaled(1)
        y: root.theme.scaled(4)

        StatusLine {
            id: headlineText

            readonly property double firstLineHeight: contentHeight / Math.max(1, lineCount)

            font.pixelSize: root.theme.headlineSize
            font.weight: Font.DemiBold
            objectName: "headline"
            text: root.headline
            theme: root.theme

            Accessible.description: qsTr("F1 says why")
            Accessible.role: Accessible.Heading
        }
        StatusLine {
            id: subtitleText

            color: root.theme.secondaryText
            font.pixelSize: root.theme.subheadlineSize
            objectName: "subtitle"
            text: root.subtitle
            theme: root.theme
        }
        StatusLine {
            id: detailsText

            color: root.theme.tertiaryText
            font.pixelSize: root.theme.captionSize
            objectName: "details"
            text: root.details
            theme: root.theme
            visible: text

            Accessible.ignored: !visible
        }
    }
}
