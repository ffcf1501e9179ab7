// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

/// What buttons of all kinds have in common: a key or a screen reader presses them as a click does.
T.AbstractButton {
    id: root

    required property Theme theme

    hoverEnabled: true

    Accessible.name: text
    // There is no other way to tell a screen reader that a control is disabled.
    Accessible.description: enabled ? "" : qsTr("Not available")
    // In this version of Qt a press by a screen reader reaches the control, be it disabled or not, but does nothing.
    Accessible.onPressAction: press()
    Keys.onEnterPressed: press()
    Keys.onReturnPressed: press()

    /// Does what a click does.
    function press() {
        if (enabled)
            clicked();
    }
}
