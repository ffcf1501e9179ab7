// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Tarvik.Design

/// The agents and editors that were found, with headings. With the keyboard, one row after the other is read.
ListView {
    id: root

    required property Theme theme

    activeFocusOnTab: count > 0
    boundsBehavior: Flickable.StopAtBounds
    // Rows that are still being made for later when the list becomes shorter make Qt complain.
    cacheBuffer: 0
    clip: true
    highlightMoveDuration: 0
    keyNavigationEnabled: true
    section.property: "section"

    Accessible.name: qsTr("Agents and editors")
    Accessible.role: Accessible.List
    Keys.onPressed: event => event.accepted = moveBy(event.key)
    // Clear of the card's corners and of the ring around what has the focus.
    T.ScrollBar.vertical: ScrollBar {
        bottomPadding: 10
        horizontalPadding: 4
        implicitWidth: 12
        theme: root.theme
        topPadding: 10
    }

    // What a component names of its surroundings cannot be declared before Qt 6.5.
    // qmllint disable unqualified
    delegate: AgentRow {
        isCurrent: ListView.isCurrentItem && root.activeFocus
        theme: root.theme
        width: root.width
    }
    section.delegate: Label {
        required property string section

        bottomPadding: root.theme.scaled(2)
        color: root.theme.secondaryText
        font.pixelSize: root.theme.captionSize
        font.weight: Font.DemiBold
        leftPadding: root.theme.scaled(12)
        rightPadding: root.theme.scaled(12)
        text: section
        theme: root.theme
        topPadding: root.theme.scaled(8)
        width: root.width
        wrapMode: Text.Wrap

        Accessible.name: text
        Accessible.role: Accessible.Heading
    }
    // qmllint enable unqualified

    onActiveFocusChanged: {
        if (!activeFocus)
            return;
        currentIndex = Math.max(0, indexAt(1, contentY + theme.scaled(28)));
        positionViewAtIndex(currentIndex, ListView.Contain);
    }

    /// By a page, or to an end; whether the key does that.
    function moveBy(key: int): bool {
        const targets = {
            [Qt.Key_Home]: 0,
            [Qt.Key_End]: count - 1,
            [Qt.Key_PageUp]: Math.max(0, indexAt(1, contentY - height)),
            [Qt.Key_PageDown]: indexAt(1, contentY + 2 * height - 1)
        };
        if (!(key in targets) || count === 0)
            return false;
        const target = targets[key] < 0 ? count - 1 : targets[key];
        if (activeFocus)
            currentIndex = target;
        else
            positionViewAtIndex(target, ListView.Contain);
        return true;
    }
}
