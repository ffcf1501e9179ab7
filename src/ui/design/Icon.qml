// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// One of our line icons, by name.
Image {
    id: root

    required property Theme theme
    required property string name
    property color color: theme.secondaryText
    property int size: theme.iconSize

    height: size
    source: name ? `image://icons/${name}/${color.toString().slice(-6)}` : ""
    sourceSize.height: size * Screen.devicePixelRatio
    sourceSize.width: size * Screen.devicePixelRatio
    width: size

    Accessible.ignored: true
}
