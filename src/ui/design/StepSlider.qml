// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

/// A slider that only stops at multiples of its step.
T.Slider {
    id: root

    required property Theme theme
    // By these names Qt tells a screen reader the range.
    readonly property double minimumValue: from
    readonly property double maximumValue: to

    hoverEnabled: true
    implicitHeight: theme.scaled(20)
    implicitWidth: theme.scaled(168)
    snapMode: T.Slider.SnapAlways

    Keys.onPressed: event => event.accepted = moveByKey(event.key)

    background: Rectangle {
        color: root.theme.switchOff
        height: root.theme.scaled(4)
        radius: height / 2
        width: root.availableWidth
        y: (root.height - height) / 2

        Rectangle {
            color: root.theme.accent
            height: parent.height
            radius: parent.radius
            width: root.position * parent.width
            x: root.mirrored ? parent.width - width : 0
        }
    }
    handle: Rectangle {
        border.color: root.theme.switchOff
        border.width: 1
        color: root.theme.knob
        height: root.theme.scaled(16)
        radius: height / 2
        width: height
        x: root.visualPosition * (root.availableWidth - width)
        y: (root.height - height) / 2

        FocusRing {
            anchors.margins: -3
            radius: parent.radius + 3
            theme: root.theme
            visible: root.visualFocus
        }
    }

    // The wheel moves it by whole steps; what a fraction of a notch turns adds up.
    WheelHandler {
        property double turned: 0

        onWheel: event => {
            turned += event.angleDelta.y / 120;
            root.moveBy(Math.trunc(turned));
            turned -= Math.trunc(turned);
        }
    }

    /// Beside the arrow keys, which the template knows.
    function moveByKey(key: int): bool {
        const page = 4;
        const all = Math.ceil((to - from) / stepSize);
        const distances = {
            [Qt.Key_Home]: -all,
            [Qt.Key_End]: all,
            [Qt.Key_PageUp]: page,
            [Qt.Key_PageDown]: -page
        };
        if (!(key in distances))
            return false;
        moveBy(distances[key]);
        return true;
    }

    function moveBy(steps: int) {
        const before = value;
        for (let done = 0; done < Math.abs(steps); ++done)
            steps > 0 ? increase() : decrease();
        if (value !== before)
            moved();
    }
}
