// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Mirror

/// A small window with something that the user has to know or to decide. Escape closes it.
Window {
    id: root

    required property Appearance appearance
    required property string message
    required property string informativeText
    /// What stands below the texts.
    default property alias details: detailColumn.data
    /// From the least to the most likely choice, which is what Return presses unless another one has the focus.
    property alias buttons: buttonRow.data
    readonly property alias theme: theme

    readonly property int fullHeight: Math.min(content.implicitHeight, Math.min(Screen.height, Screen.desktopAvailableHeight) - theme.titleBarHeight)
    readonly property int fullWidth: Math.min(theme.scaled(440), Screen.width, Screen.desktopAvailableWidth)

    color: theme.panel
    flags: Qt.Dialog
    height: fullHeight
    maximumHeight: fullHeight
    maximumWidth: fullWidth
    minimumHeight: fullHeight
    minimumWidth: fullWidth
    title: "Tarvik"
    width: fullWidth

    onVisibleChanged: if (visible)
        buttonRow.children[buttonRow.children.length - 1].forceActiveFocus()

    Theme {
        id: theme

        appearance: root.appearance
    }
    FocusScope {
        id: content

        focus: true
        // Not those of the window, which gives its content a size only when it is shown.
        height: root.fullHeight
        implicitHeight: texts.implicitHeight + buttonRow.height + 3 * theme.scaled(20)
        width: root.fullWidth

        LayoutMirroring.childrenInherit: true
        LayoutMirroring.enabled: theme.isRightToLeft

        Accessible.description: root.informativeText
        Accessible.name: root.message
        Accessible.role: Accessible.AlertMessage
        Keys.onEscapePressed: root.close()

        Column {
            id: texts

            anchors.left: parent.left
            anchors.margins: theme.scaled(20)
            anchors.right: parent.right
            anchors.top: parent.top
            spacing: theme.scaled(8)

            Label {
                font.pixelSize: theme.headlineSize
                font.weight: Font.DemiBold
                text: root.message
                theme: theme
                width: parent.width
                wrapMode: Text.Wrap

                Accessible.name: text
                Accessible.role: Accessible.Heading
            }
            Label {
                color: theme.secondaryText
                lineHeight: 1.15
                text: root.informativeText
                theme: theme
                width: parent.width
                wrapMode: Text.Wrap

                Accessible.name: text
                Accessible.role: Accessible.StaticText
            }
            Column {
                id: detailColumn

                spacing: parent.spacing
                width: parent.width
            }
        }
        Flow {
            id: buttonRow

            anchors.bottom: parent.bottom
            anchors.margins: theme.scaled(20)
            anchors.right: parent.right
            spacing: theme.scaled(8)
        }
    }
    Shortcut {
        // Qt 6.4 does not tell its tools of StandardKey.
        sequences: [StandardKey.Close] // qmllint disable unqualified

        onActivated: root.close()
    }
}
