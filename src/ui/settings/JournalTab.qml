// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// The history, newest first.
Item {
    id: root

    required property Theme theme
    required property JournalMirror journal

    signal copyText(string text)

    Keys.onPressed: event => event.accepted = list.moveBy(event.key)

    PresentTime {
        id: present

        lifetime: Texts.untilNextDay(now)
    }
    Rectangle {
        id: card

        anchors.bottom: buttons.top
        anchors.bottomMargin: root.theme.scaled(16)
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: parent.top
        anchors.topMargin: root.theme.scaled(16)
        border.color: root.theme.separator
        color: root.theme.card
        radius: root.theme.cardRadius
        width: Math.min(parent.width - 2 * root.theme.scaled(20), root.theme.columnWidth)

        Label {
            anchors.centerIn: parent
            color: root.theme.tertiaryText
            horizontalAlignment: Text.AlignHCenter
            objectName: "noEntries"
            text: qsTr("Nothing yet. Tarvik records every time it starts, stops, or pauses.")
            theme: root.theme
            visible: list.count === 0
            width: Math.min(parent.width - root.theme.scaled(48), root.theme.scaled(280))
            wrapMode: Text.Wrap

            Accessible.name: text
            Accessible.role: Accessible.StaticText
        }
        JournalList {
            id: list

            anchors.fill: parent
            anchors.margins: 1
            model: root.journal.entries
            now: present.now
            objectName: "entries"
            theme: root.theme
        }
        FocusRing {
            radius: parent.radius
            theme: root.theme
            visible: list.activeFocus
        }
    }
    JournalButtons {
        id: buttons

        anchors.bottom: parent.bottom
        anchors.bottomMargin: root.theme.scaled(16)
        anchors.right: card.right
        enabled: list.count > 0
        theme: root.theme

        onClearWanted: {
            // A button that cannot be used any more keeps no focus.
            if (isClearFocused)
                list.forceActiveFocus(Qt.TabFocusReason);
            root.journal.clear();
        }
        onCopyWanted: root.journal.exportText()
    }
    Connections {
        function onExported(text: string) {
            root.copyText(text);
            buttons.confirmCopy();
        }

        target: root.journal
    }
}
