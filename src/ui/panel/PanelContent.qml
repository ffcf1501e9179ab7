// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// What the panel shows, from top to bottom.
Column {
    id: root

    required property Theme theme
    required property StatusMirror status
    required property SettingsMirror settings

    readonly property int rowWidth: width - 2 * padding
    readonly property alias sessionRow: sessionRow
    readonly property alias tip: header.tip

    signal lockScreen
    signal openSettings
    signal quit

    padding: theme.scaled(6)
    spacing: theme.scaled(6)

    StatusHeader {
        id: header

        details: root.status.details
        headline: root.status.reason
        isAwake: root.status.isAwake
        subtitle: root.status.subtitle
        theme: root.theme
        why: root.status.why
        width: root.rowWidth
    }
    EnableRow {
        objectName: "enableRow"
        settings: root.settings
        theme: root.theme
        width: root.rowWidth
    }
    Separator {
        theme: root.theme
        width: root.rowWidth
    }
    SessionRow {
        id: sessionRow

        isTimedSessionActive: root.status.isTimedSessionActive
        objectName: "sessionRow"
        theme: root.theme
        width: root.rowWidth

        onChosen: minutes => root.status.setTimedSession(minutes)
    }
    MenuRow {
        objectName: "lockRow"
        systemImage: "lock.display"
        theme: root.theme
        title: qsTr("Lock & leave")
        width: root.rowWidth

        onClicked: root.lockScreen()
    }
    Separator {
        theme: root.theme
        width: root.rowWidth
    }
    MenuRow {
        objectName: "settingsRow"
        systemImage: "gearshape"
        theme: root.theme
        title: qsTr("Settings…")
        width: root.rowWidth

        onClicked: root.openSettings()
    }
    MenuRow {
        objectName: "quitRow"
        systemImage: "power"
        theme: root.theme
        title: qsTr("Quit Tarvik")
        width: root.rowWidth

        onClicked: root.quit()
    }
}
