// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

/// The tabs of a window: an icon above a label each, side by side, all of the same width unless one needs more.
T.TabBar {
    id: root

    required property Theme theme

    implicitHeight: contentHeight + topPadding + bottomPadding
    horizontalPadding: Math.max(padding, (width - theme.columnWidth) / 2)
    padding: theme.scaled(6)
    spacing: theme.scaled(4)

    Accessible.ignored: true
    Keys.onLeftPressed: move(mirrored ? 1 : -1)
    Keys.onRightPressed: move(mirrored ? -1 : 1)

    background: Rectangle {
        color: root.theme.panel

        Rectangle {
            anchors.bottom: parent.bottom
            color: root.theme.separator
            height: 1
            width: parent.width
        }
    }
    contentItem: ListView {
        currentIndex: root.currentIndex
        focus: true
        interactive: false
        model: root.contentModel
        orientation: ListView.Horizontal
        spacing: root.spacing
    }

    function widthOf(tab: Item): double {
        let widest = 0;
        let rest = availableWidth - spacing * (count - 1);
        const share = rest / count;
        for (let index = 0; index < count; ++index) {
            const wanted = itemAt(index)?.implicitWidth ?? 0;
            widest = Math.max(widest, wanted);
            rest -= wanted;
        }
        return widest <= share ? share : tab.implicitWidth + rest / count;
    }

    /// Stays at the ends.
    function move(step: int) {
        show(Math.max(0, Math.min(count - 1, currentIndex + step)));
    }

    /// Goes round at the ends.
    function showNext(step: int) {
        show((currentIndex + step + count) % count);
    }

    /// The focus goes first: newer versions of Qt warn of a tab that the keyboard does not reach any more while it has it.
    function show(index: int) {
        itemAt(index).forceActiveFocus(Qt.TabFocusReason);
        setCurrentIndex(index);
    }
}
