// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

/// A small window's worth of content that comes over its window and has to be left before the window can be used again.
T.Popup {
    id: root

    required property Theme theme

    /// What had the keyboard's focus before, and whether that was shown.
    property Item opener
    property bool wasFocusVisible: false

    anchors.centerIn: parent
    closePolicy: T.Popup.CloseOnEscape
    focus: true
    modal: true
    padding: theme.scaled(16)

    onAboutToShow: {
        opener = parent.Window.activeFocusItem;
        wasFocusVisible = (opener as T.Control)?.visualFocus ?? false;
    }
    onClosed: opener?.forceActiveFocus(wasFocusVisible ? Qt.TabFocusReason : Qt.PopupFocusReason)

    // A window that was closed comes back without it.
    Connections {
        function onVisibleChanged() {
            if (!root.parent.Window.window.visible)
                root.close();
        }

        target: root.parent?.Window.window ?? null
    }

    // What a component names of its surroundings cannot be declared before Qt 6.5.
    T.Overlay.modal: Rectangle {
        color: root.theme.isDark ? "#99000000" : "#59000000" // qmllint disable unqualified
    }
    background: Rectangle {
        border.color: root.theme.outline
        border.width: 1
        color: root.theme.window
        radius: root.theme.windowRadius
    }
}
