// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

/// One tab of a TabStrip.
T.TabButton {
    id: root

    required property Theme theme
    required property string systemImage
    /// The icon shows in which direction text runs.
    property bool isDirectional: false

    readonly property color contentColor: checked ? theme.accentOnSurface : theme.secondaryText

    bottomPadding: theme.scaled(6)
    focusPolicy: checked || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
    font.family: theme.fontFamily
    font.pixelSize: theme.captionSize
    font.weight: checked ? Font.DemiBold : Font.Normal
    hoverEnabled: true
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    // The same whether the tab is shown or not.
    implicitWidth: Math.ceil(shownText.advanceWidth) + leftPadding + rightPadding + 2
    leftPadding: theme.scaled(2)
    rightPadding: theme.scaled(2)
    topPadding: theme.scaled(8)
    width: (T.TabBar.tabBar as TabStrip)?.widthOf(this) ?? implicitWidth

    Accessible.name: text
    // See Pressable.
    Accessible.onPressAction: {
        if (enabled)
            (T.TabBar.tabBar as TabStrip).show(T.TabBar.index);
    }
    Accessible.role: Accessible.PageTab
    Accessible.selected: checked

    TextMetrics {
        id: shownText

        font.family: root.font.family
        font.pixelSize: root.font.pixelSize
        font.weight: Font.DemiBold
        text: root.text
    }

    background: Rectangle {
        color: root.checked ? root.theme.selection : root.down ? root.theme.pressed : root.hovered ? root.theme.hover : "transparent"
        radius: root.theme.buttonRadius

        FocusRing {
            radius: parent.radius
            theme: root.theme
            visible: root.visualFocus
        }
    }
    contentItem: Column {
        spacing: root.theme.scaled(4)

        Icon {
            anchors.horizontalCenter: parent.horizontalCenter
            color: root.contentColor
            mirror: root.isDirectional && root.mirrored
            name: root.systemImage
            size: root.theme.scaled(18)
            theme: root.theme
        }
        Label {
            color: root.checked ? root.contentColor : root.theme.text
            font: root.font
            horizontalAlignment: Text.AlignHCenter
            text: root.text
            theme: root.theme
            width: parent.width

            Accessible.ignored: true
        }
    }
}
