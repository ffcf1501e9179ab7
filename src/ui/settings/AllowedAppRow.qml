// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// An application that keeps the computer awake, with a button that takes it off the list.
CardRow {
    id: root

    required property int index
    /// With "bundleID" and "name".
    required property var modelData
    readonly property alias removeButton: removeButton

    signal removed

    title: modelData.name

    IconButton {
        id: removeButton

        isDestructive: true
        objectName: "remove"
        systemImage: "minus.circle"
        text: qsTr("Remove %1").arg(root.title)
        theme: root.theme

        // The icon, not what is around it, is in line with the controls of other rows.
        transform: Translate {
            x: root.theme.scaled(removeButton.mirrored ? -4 : 4)
        }

        onClicked: root.removed()
    }
}
