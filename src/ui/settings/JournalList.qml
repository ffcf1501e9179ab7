// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Tarvik.Design

/// The entries of the history; an arrow key, a page or an end is where the keyboard goes.
ListView {
    id: root

    required property Theme theme

    /// Entries are being added to a list that is at its beginning, and stays there.
    property bool staysAtBeginning: false

    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    // Rows that are still being made for later when the list is cleared make Qt complain.
    cacheBuffer: 0
    clip: true
    highlightMoveDuration: 0
    keyNavigationEnabled: true

    Accessible.name: qsTr("Journal")
    Accessible.role: Accessible.List
    T.ScrollBar.vertical: ScrollBar {
        theme: root.theme
    }

    // What a component names of its surroundings cannot be declared before Qt 6.5.
    // qmllint disable unqualified
    delegate: JournalRow {
        isCurrent: ListView.isCurrentItem && root.activeFocus
        theme: root.theme
        width: root.width
    }
    // qmllint enable unqualified

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

    Connections {
        function onRowsAboutToBeInserted() {
            root.staysAtBeginning = root.atYBeginning;
        }

        target: root.model
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
