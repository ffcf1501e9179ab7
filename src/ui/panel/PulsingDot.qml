// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// The status light: while active, a halo swells from the dot and fades, once in each period.
Item {
    id: root

    required property Theme theme
    required property bool active
    /// Seconds.
    required property double period

    /// From 0 up to 1, by the wall clock, so that all dots of a desktop pulse together.
    property double phase: 0
    readonly property bool isRunning: active && visible && theme.isAnimated && Window.visibility !== Window.Hidden

    implicitHeight: theme.scaled(9)
    implicitWidth: theme.scaled(9)

    Accessible.ignored: true

    // Pictures, the halo's at its largest size: the software renderer gives small rounded rectangles corners.
    Icon {
        anchors.fill: parent
        color: root.theme.awake
        name: "circle.fill"
        objectName: "halo"
        opacity: root.active ? (1 - root.phase) * 0.5 : 0
        scale: root.active ? 1 + 1.5 * root.phase : 1
        sourceSize.height: 2.5 * height * Screen.devicePixelRatio
        sourceSize.width: 2.5 * width * Screen.devicePixelRatio
        theme: root.theme
    }
    Icon {
        anchors.fill: parent
        color: root.active ? root.theme.awake : root.theme.secondaryText
        name: "circle.fill"
        objectName: "core"
        sourceSize.height: height * Screen.devicePixelRatio
        sourceSize.width: width * Screen.devicePixelRatio
        theme: root.theme
    }
    Timer {
        interval: 33
        repeat: true
        running: root.isRunning
        triggeredOnStart: true

        onTriggered: root.phase = root.phaseAt(Date.now())
    }

    /// The phase at so many milliseconds after 1970-01-01 00:00 UTC.
    function phaseAt(milliseconds: double): double {
        const since2001 = milliseconds / 1000 - 978307200;
        return (since2001 % period) / period;
    }
}
