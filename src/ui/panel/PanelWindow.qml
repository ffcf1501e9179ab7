// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// The window of the panel: a surface with a shadow where the desktop can show one.
Window {
    id: root

    required property Appearance appearance
    required property SettingsMirror settings
    required property StatusMirror status
    /// Whether transparent windows are possible.
    required property bool isComposited

    /// Pixels around the surface that belong to the window but not to what is seen of it. A window manager may keep the
    /// upper edge of a window clear of a panel, so there is little above.
    readonly property int shadowExtent: isComposited ? 24 : 0
    readonly property int shadowExtentAbove: isComposited ? 6 : 0

    signal lockScreen
    signal openSettings
    signal quit

    color: isComposited ? "transparent" : theme.panel
    height: view.implicitHeight + shadowExtentAbove + shadowExtent
    title: "Tarvik"
    width: view.implicitWidth + 2 * shadowExtent

    onVisibleChanged: {
        if (visible)
            view.reset();
        else
            fit();
    }

    Theme {
        id: theme

        appearance: root.appearance
    }
    Shadow {
        anchors.fill: surface
        extent: 18
        radius: surface.radius
        visible: root.isComposited
    }
    Rectangle {
        id: surface

        anchors.fill: parent
        anchors.margins: root.shadowExtent
        anchors.topMargin: root.shadowExtentAbove
        border.color: theme.outline
        border.width: 1
        color: theme.panel
        radius: root.isComposited ? theme.windowRadius : 0

        MenuView {
            id: view

            anchors.fill: parent
            settings: root.settings
            status: root.status
            theme: theme

            onDismissed: root.close()
            onLockScreen: root.lockScreen()
            onOpenSettings: root.openSettings()
            onQuit: root.quit()
        }
    }

    /// A window manager forgets a size that it was asked for just before the window closed.
    function fit() {
        height = Qt.binding(() => view.implicitHeight + shadowExtentAbove + shadowExtent);
        width = Qt.binding(() => view.implicitWidth + 2 * shadowExtent);
    }
}
