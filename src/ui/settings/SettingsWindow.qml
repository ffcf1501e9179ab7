// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror
import Tarvik.Request

/// The window of the settings, of a fixed size that grows with the text as far as the screen goes.
Window {
    id: root

    required property Appearance appearance
    required property SettingsMirror settings
    required property StatusMirror status
    required property LidClosedMirror lidClosed
    required property JournalMirror journal
    required property HooksMirror hooks
    required property UpdaterMirror updater
    required property AgentRequest agentRequest
    required property ApplicationChoice applications
    /// How many coding agents the catalogue knows.
    required property int agentCount

    // What is available is told of all screens together, and the one with the window may be the smallest.
    readonly property int fullHeight: Math.min(theme.scaled(440), Math.min(Screen.height, Screen.desktopAvailableHeight) - theme.titleBarHeight)
    readonly property int fullWidth: Math.min(theme.scaled(480), Screen.width, Screen.desktopAvailableWidth)

    /// Puts the text on the clipboard.
    signal copyText(string text)

    color: theme.window
    height: fullHeight
    maximumHeight: fullHeight
    maximumWidth: fullWidth
    minimumHeight: fullHeight
    minimumWidth: fullWidth
    title: qsTr("Tarvik Settings")
    width: fullWidth

    Theme {
        id: theme

        appearance: root.appearance
    }
    SettingsView {
        agentCount: root.agentCount
        agentRequest: root.agentRequest
        anchors.fill: parent
        applications: root.applications
        focus: true
        hooks: root.hooks
        journal: root.journal
        lidClosed: root.lidClosed
        settings: root.settings
        status: root.status
        theme: theme
        updater: root.updater

        Keys.onEscapePressed: root.close()
        onCopyText: text => root.copyText(text)
    }
    Shortcut {
        // Qt 6.4 does not tell its tools of StandardKey.
        sequences: [StandardKey.Close] // qmllint disable unqualified

        onActivated: root.close()
    }
}
