// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

/// An on-off switch. React to onCheckedChanged: a toggle by a screen reader does not emit toggled().
T.Switch {
    id: root

    required property Theme theme

    hoverEnabled: true
    implicitHeight: root.theme.scaled(20)
    implicitWidth: root.theme.scaled(36)

    Accessible.role: Accessible.CheckBox
    // See Pressable.
    Accessible.onPressAction: {
        if (enabled)
            toggle();
    }
    Keys.onEnterPressed: toggle()
    Keys.onReturnPressed: toggle()

    indicator: Rectangle {
        border.color: root.theme.switchOutline
        border.width: root.checked && root.theme.switchOutline.a > 0 ? 1 : 0
        color: root.checked ? root.theme.accent : root.theme.switchOff
        height: root.implicitHeight
        opacity: root.enabled ? 1 : 0.5
        radius: height / 2
        width: root.implicitWidth

        Behavior on color {
            ColorAnimation {
                duration: root.theme.slideDuration
            }
        }

        Rectangle {
            color: root.checked ? root.theme.accentKnob : root.theme.knob
            height: parent.height - 2 * y
            radius: height / 2
            width: height
            x: y + root.visualPosition * (parent.width - width - 2 * y)
            y: root.theme.scaled(2)

            Behavior on x {
                enabled: !root.pressed

                NumberAnimation {
                    duration: root.theme.slideDuration
                    easing.type: Easing.InOutQuad
                }
            }
        }
        FocusRing {
            anchors.margins: -3
            radius: parent.radius + 3
            theme: root.theme
            visible: root.visualFocus
        }
    }
}
