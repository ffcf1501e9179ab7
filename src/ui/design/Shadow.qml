// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// What a raised surface casts on the things behind it.
Item {
    id: root

    property int extent: 18
    property int radius: 10

    Accessible.ignored: true

    BorderImage {
        anchors.bottomMargin: -root.extent - 4
        anchors.fill: parent
        anchors.leftMargin: -root.extent
        anchors.rightMargin: -root.extent
        anchors.topMargin: -root.extent + 4
        border.bottom: root.extent + root.radius
        border.left: root.extent + root.radius
        border.right: root.extent + root.radius
        border.top: root.extent + root.radius
        source: `image://shadows/${root.extent}/${root.radius}`
    }
}
