// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Tarvik.Design

/// The entries of the history below the days that they are of; an arrow key, a page or an end is where the keyboard goes.
ListView {
    id: root

    required property Theme theme
    required property date now

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
    // Clear of the card's corners and of the ring around what has the focus.
    T.ScrollBar.vertical: ScrollBar {
        bottomPadding: 10
        horizontalPadding: 4
        implicitWidth: 12
        theme: root.theme
        topPadding: 10
    }
    // A heading is a part of the first entry below it: as a delegate of the section it would come to a screen reader after
    // that, and when it is used again, keep its text.
    section.property: "day"

    // What a component names of its surroundings cannot be declared before Qt 6.5.
    // qmllint disable unqualified
    delegate: JournalEntry {
        isCurrent: ListView.isCurrentItem && root.activeFocus
        isFirstOfDay: ListView.previousSection !== ListView.section
        now: root.now
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
