// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// The window of the introduction to lid-closed mode. It can be moved by whatever of it is no control.
Window {
    id: root

    required property Appearance appearance
    required property LidClosedMirror lidClosed
    required property url applicationIcon

    // See SettingsWindow.
    readonly property int fullHeight: Math.min(view.implicitHeight, Math.min(Screen.height, Screen.desktopAvailableHeight) - theme.titleBarHeight)
    readonly property int fullWidth: Math.min(view.implicitWidth, Screen.width, Screen.desktopAvailableWidth)

    color: theme.panel
    height: fullHeight
    maximumHeight: fullHeight
    maximumWidth: fullWidth
    minimumHeight: fullHeight
    minimumWidth: fullWidth
    title: qsTr("Set up lid-closed mode")
    width: fullWidth

    Theme {
        id: theme

        appearance: root.appearance
    }
    OnboardingView {
        id: view

        anchors.fill: parent
        applicationIcon: root.applicationIcon
        focus: true
        lidClosed: root.lidClosed
        theme: theme

        Keys.onEscapePressed: root.close()
        onDone: {
            root.lidClosed.finishOnboarding();
            root.close();
        }

        DragHandler {
            target: null

            onActiveChanged: if (active)
                root.startSystemMove()
        }
    }
    Shortcut {
        // Qt 6.4 does not tell its tools of StandardKey.
        sequences: [StandardKey.Close] // qmllint disable unqualified

        onActivated: root.close()
    }
}
