// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

/// A page of sections that scrolls, also to the control that the keyboard reaches.
Flickable {
    id: root

    required property Theme theme
    default property alias sections: column.data

    boundsBehavior: Flickable.StopAtBounds
    clip: true
    contentHeight: column.height + 2 * column.y
    contentWidth: width

    T.ScrollBar.vertical: ScrollBar {
        theme: root.theme
    }

    Column {
        id: column

        spacing: 18
        width: root.width - 2 * x
        x: 20
        y: 16
    }
    Connections {
        function onActiveFocusItemChanged() {
            root.showFocus(root.Window.activeFocusItem);
        }

        target: root.Window.window
    }

    function showFocus(item: Item) {
        for (let ancestor = item; ancestor; ancestor = ancestor.parent) {
            if (ancestor === contentItem) {
                show(item);
                return;
            }
        }
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
