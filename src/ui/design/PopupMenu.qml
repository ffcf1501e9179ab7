// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

/// A menu inside the window, but not on its shadow, through which clicks go; it scrolls where that is too small for it.
T.Menu {
    id: root

    required property Theme theme
    /// From right to left: a menu does not take this over from the item that it belongs to.
    property bool isMirrored: false

    implicitHeight: Math.min(contentHeight + topPadding + bottomPadding, parent && parent.Window.window ? parent.Window.window.height - topMargin - bottomMargin : 10000)
    implicitWidth: Math.max(theme.scaled(190), widestItem() + leftPadding + rightPadding)
    margins: 4
    overlap: 0
    padding: theme.scaled(5)

    background: Rectangle {
        border.color: root.theme.outline
        border.width: 1
        color: root.theme.menu
        radius: root.theme.scaled(8)

        Shadow {
            anchors.fill: parent
            extent: 14
            radius: parent.radius
            z: -1
        }
    }
    contentItem: ListView {
        LayoutMirroring.childrenInherit: true
        LayoutMirroring.enabled: root.isMirrored
        clip: contentHeight > height
        implicitHeight: contentHeight
        interactive: contentHeight > height
        keyNavigationEnabled: false
        model: root.contentModel
    }

    // The item of a popup is reached through what it holds only.
    Component.onCompleted: {
        contentItem.parent.Accessible.name = Qt.binding(() => root.title);
        contentItem.parent.Keys.pressed.connect(event => event.accepted = moveByKey(event.key));
    }
    onAboutToShow: stayOnSurface()
    onCurrentIndexChanged: (contentItem as ListView).positionViewAtIndex(currentIndex, ListView.Contain)

    function stayOnSurface() {
        const window = parent.Window.window;
        let surface = parent;
        while (surface.parent && surface.parent !== parent.Window.contentItem)
            surface = surface.parent;
        const corner = surface.mapToItem(null, 0, 0);
        leftMargin = corner.x + margins;
        topMargin = corner.y + margins;
        rightMargin = window.width - corner.x - surface.width + margins;
        bottomMargin = window.height - corner.y - surface.height + margins;
    }

    function widestItem(): double {
        let widest = 0;
        for (let index = 0; index < count; ++index)
            widest = Math.max(widest, itemAt(index).implicitWidth);
        return widest;
    }

    function moveByKey(key: int): bool {
        switch (key) {
        case Qt.Key_Down:
            selectFrom(currentIndex, 1);
            return true;
        case Qt.Key_Up:
            selectFrom(Math.max(0, currentIndex), -1);
            return true;
        case Qt.Key_Home:
            selectFrom(-1, 1);
            return true;
        case Qt.Key_End:
            selectFrom(count, -1);
            return true;
        default:
            return false;
        }
    }

    /// The next entry in this direction that can be chosen, beyond the end that at the other one.
    function selectFrom(index: int, step: int) {
        for (let passed = 1; passed <= count; ++passed) {
            const next = (index + passed * step + count) % count;
            if ((itemAt(next) as T.MenuItem)?.enabled) {
                currentIndex = next;
                return;
            }
        }
    }
}
