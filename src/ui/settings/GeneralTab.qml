// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// What Tarvik keeps awake besides the computer, when it starts, how it deals with the lid, and what it tells the user.
Form {
    id: root

    required property SettingsMirror settings
    required property LidClosedMirror lidClosed

    Section {
        theme: root.theme

        SwitchRow {
            isOn: root.settings.keepDisplayAwake
            objectName: "keepDisplayAwake"
            theme: root.theme
            title: qsTr("Also keep the display awake")

            onSwitched: on => root.settings.keepDisplayAwake = on
        }
        SwitchRow {
            isOn: root.settings.launchAtLogin
            objectName: "launchAtLogin"
            theme: root.theme
            title: qsTr("Launch Tarvik at login")

            onSwitched: on => root.settings.launchAtLogin = on
        }
    }
    LidClosedSection {
        lidClosed: root.lidClosed
        settings: root.settings
        theme: root.theme
    }
    Section {
        footer: qsTr("Every change is recorded in the Journal tab either way.")
        heading: qsTr("Notifications")
        theme: root.theme

        SwitchRow {
            isOn: root.settings.notifyOnToggle
            objectName: "notifyOnToggle"
            theme: root.theme
            title: qsTr("Notify every time Tarvik starts or stops")

            onSwitched: on => root.settings.notifyOnToggle = on
        }
        SwitchRow {
            isOn: root.settings.notifyOnPause
            objectName: "notifyOnPause"
            theme: root.theme
            title: qsTr("Notify when paused by battery or heat")

            onSwitched: on => root.settings.notifyOnPause = on
        }
    }
}
