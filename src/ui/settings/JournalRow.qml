// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// One entry of the history: what happened, why, and when.
Item {
    id: root

    required property Theme theme
    required property date at
    required property string day
    required property string reason
    required property string iconName
    required property string iconColor
    required property date now
    required property bool isFirstOfDay
    /// The one that the keyboard has reached.
    property bool isCurrent: false

    readonly property int inset: theme.scaled(12)
    readonly property alias timeText: time.text

    implicitHeight: Math.max(theme.scaled(36), texts.implicitHeight + theme.scaled(16))

    Accessible.name: qsTr("%1, %2, %3").arg(reason).arg(Texts.day(day, now)).arg(time.text)
    Accessible.role: Accessible.ListItem

    Separator {
        anchors.left: parent.left
        anchors.right: parent.right
        inset: root.inset
        theme: root.theme
        visible: !root.isFirstOfDay
    }
    RowHighlight {
        anchors.fill: parent
        anchors.bottomMargin: root.theme.scaled(4)
        anchors.leftMargin: root.theme.scaled(8)
        anchors.rightMargin: root.theme.scaled(8)
        anchors.topMargin: root.theme.scaled(4)
        isCurrent: root.isCurrent
        theme: root.theme
        visible: root.isCurrent
    }
    Icon {
        id: icon

        anchors.left: parent.left
        anchors.leftMargin: root.inset
        anchors.verticalCenter: parent.verticalCenter
        color: root.iconColor === "orange" ? root.theme.attention : root.theme.secondaryText
        name: root.iconName
        theme: root.theme
    }
    Label {
        id: texts

        anchors.left: icon.right
        anchors.leftMargin: root.inset
        anchors.right: time.left
        anchors.rightMargin: root.inset
        anchors.verticalCenter: parent.verticalCenter
        text: root.reason
        theme: root.theme
        wrapMode: Text.Wrap

        Accessible.ignored: true
    }
    Label {
        id: time

        anchors.right: parent.right
        anchors.rightMargin: root.inset
        anchors.verticalCenter: parent.verticalCenter
        color: root.isCurrent ? root.theme.secondaryText : root.theme.tertiaryText
        font.pixelSize: root.theme.captionSize
        text: Texts.time(root.at)
        theme: root.theme

        Accessible.ignored: true
    }
}
