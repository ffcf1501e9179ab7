// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// The present time, for texts that say how long ago something was. It stands still, and wakes nobody, while this cannot be
/// seen.
Item {
    id: root

    /// For how many milliseconds what is said of `now` stays true; 0 for ever.
    required property int lifetime
    property date now: new Date()

    readonly property bool isShown: visible && Window.visibility !== Window.Hidden && Window.visibility !== Window.Minimized

    onIsShownChanged: now = new Date()

    Timer {
        interval: root.lifetime
        repeat: true
        running: root.isShown && root.lifetime > 0

        onTriggered: root.now = new Date()
    }
    Connections {
        function onActiveChanged() {
            root.now = new Date();
        }

        target: root.Window.window
    }
}
