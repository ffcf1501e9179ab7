// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Tarvik.Design
import Tarvik.Mirror

/// The history, newest first.
Item {
    id: root

    required property Theme theme
    required property JournalMirror journal

    signal copyText(string text)

    Keys.onPressed: event => event.accepted = list.moveBy(event.key)

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
        ListView {
            id: list

            /// Entries are being added to a list that is at its beginning, and stays there.
            property bool staysAtBeginning: false

            activeFocusOnTab: true
            anchors.fill: parent
            anchors.margins: 1
            boundsBehavior: Flickable.StopAtBounds
            // Rows that are still being made for later when the list is cleared make Qt complain.
            cacheBuffer: 0
            clip: true
            keyNavigationEnabled: true
            highlightMoveDuration: 0
            model: root.journal.entries
            objectName: "entries"

            Accessible.name: qsTr("Journal")
            Accessible.role: Accessible.List
            T.ScrollBar.vertical: ScrollBar {
                theme: root.theme
            }

            delegate: JournalRow {
                isCurrent: ListView.isCurrentItem && list.activeFocus
                theme: root.theme
                width: list.width
            }

            onActiveFocusChanged: {
                if (!activeFocus)
                    return;
                currentIndex = indexAt(1, contentY);
                positionViewAtIndex(currentIndex, ListView.Contain);
            }

            onCountChanged: {
                if (staysAtBeginning)
                    positionViewAtBeginning();
                staysAtBeginning = false;
            }

            /// By a page, or to an end.
            function moveBy(key: int): bool {
                const targets = {
                    [Qt.Key_Home]: 0,
                    [Qt.Key_End]: count - 1,
                    [Qt.Key_PageUp]: Math.max(0, indexAt(1, contentY - height)),
                    [Qt.Key_PageDown]: indexAt(1, contentY + 2 * height - 1)
                };
                if (!(key in targets))
                    return false;
                const target = targets[key] < 0 ? count - 1 : targets[key];
                if (activeFocus)
                    currentIndex = target;
                else
                    positionViewAtIndex(target, ListView.Contain);
                return true;
            }
        }
        FocusRing {
            radius: parent.radius
            theme: root.theme
            visible: list.activeFocus
        }
    }
    Row {
        id: buttons

        anchors.bottom: parent.bottom
        anchors.bottomMargin: root.theme.scaled(16)
        anchors.right: card.right
        spacing: root.theme.scaled(8)

        PushButton {
            enabled: list.count > 0
            objectName: "copy"
            text: qsTr("Copy")
            theme: root.theme

            onClicked: root.journal.exportText()
        }
        PushButton {
            enabled: list.count > 0
            isDestructive: true
            objectName: "clear"
            text: qsTr("Clear")
            theme: root.theme

            onClicked: {
                // A button that cannot be used any more keeps no focus.
                if (visualFocus)
                    list.forceActiveFocus(Qt.TabFocusReason);
                root.journal.clear();
            }
        }
    }
    Connections {
        function onRowsAboutToBeInserted() {
            list.staysAtBeginning = list.atYBeginning;
        }

        target: root.journal.entries
    }
    Connections {
        function onExported(text) {
            root.copyText(text);
        }

        target: root.journal
    }
}
