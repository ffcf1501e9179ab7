// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

/// A page of sections that scrolls, also to the control that the keyboard reaches.
Flickable {
    id: root

    required property Theme theme
    /// In the middle of a page that is higher than they are.
    property bool isCentered: false
    default property alias sections: column.data

    boundsBehavior: Flickable.StopAtBounds
    clip: true
    contentHeight: column.height + 2 * column.y
    contentWidth: width

    Keys.onPressed: event => event.accepted = scroll(event.key)
    T.ScrollBar.vertical: ScrollBar {
        theme: root.theme
    }

    Column {
        id: column

        spacing: root.theme.scaled(20)
        width: Math.min(root.width - 2 * root.theme.scaled(20), root.theme.columnWidth)
        x: (root.width - width) / 2
        y: Math.max(root.theme.scaled(16), root.isCentered ? Math.floor((root.height - height) / 2) : 0)
    }
    onContentHeightChanged: showFocus(root.Window.activeFocusItem)

    Connections {
        function onActiveFocusItemChanged() {
            root.showFocus(root.Window.activeFocusItem);
        }

        target: root.Window.window
    }

    /// With the whole part of the card that the control is in, whose caption may tell what came of using it.
    function showFocus(item: Item) {
        let shown = item;
        for (let ancestor = item; ancestor; ancestor = ancestor.parent) {
            if (ancestor instanceof CardPart)
                shown = ancestor;
            if (ancestor === contentItem) {
                show(shown);
                return;
            }
        }
    }

    /// To what has no control that the keyboard could reach.
    function scroll(key: int): bool {
        const steps = {
            [Qt.Key_Home]: -contentHeight,
            [Qt.Key_End]: contentHeight,
            [Qt.Key_PageUp]: -0.8 * height,
            [Qt.Key_PageDown]: 0.8 * height
        };
        if (!(key in steps))
            return false;
        contentY = Math.max(0, Math.min(contentHeight - height, contentY + steps[key]));
        return true;
    }

    /// Scrolls as little as possible to show the whole of `item`.
    function show(item: Item) {
        const margin = 16;
        const top = item.mapToItem(contentItem, 0, 0).y - margin;
        const bottom = top + item.height + 2 * margin;
        if (top < contentY)
            contentY = Math.max(0, top);
        else if (bottom > contentY + height)
            contentY = Math.max(0, Math.min(contentHeight, bottom) - height);
    }
}
