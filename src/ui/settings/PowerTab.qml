// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// The rules that pause Tarvik, and the one that switches it on.
Form {
    id: root

    required property SettingsMirror settings
    required property StatusMirror status

    Section {
        footer: root.batteryText()
        heading: qsTr("Battery")
        objectName: "battery"
        theme: root.theme

        SwitchRow {
            isOn: root.settings.requireAC
            objectName: "requireAC"
            theme: root.theme
            title: qsTr("Only keep awake while on AC power")

            onSwitched: on => root.settings.requireAC = on
        }
        SwitchRow {
            isOn: root.settings.batteryLimitEnabled
            objectName: "batteryLimitEnabled"
            theme: root.theme
            title: qsTr("Stop keeping awake below a battery level")

            onSwitched: on => root.settings.batteryLimitEnabled = on
        }
        BatteryLevelRow {
            settings: root.settings
            theme: root.theme
            visible: root.settings.batteryLimitEnabled
        }
    }
    Section {
        footer: qsTr("Connecting power switches Tarvik on. Unplugging leaves it on, so turning it off by hand always sticks.")
        heading: qsTr("Plugging in")
        theme: root.theme

        SwitchRow {
            isOn: root.settings.enableOnAC
            objectName: "enableOnAC"
            theme: root.theme
            title: qsTr("Turn Tarvik on when plugged in")

            onSwitched: on => root.settings.enableOnAC = on
        }
    }
    Section {
        footer: qsTr("Temperature is currently %1. Tarvik pauses while macOS reports thermal throttling, and resumes once it cools down.").arg(root.status.thermalText)
        heading: qsTr("Heat")
        objectName: "heat"
        theme: root.theme

        SwitchRow {
            isOn: root.settings.pauseWhenHot
            objectName: "pauseWhenHot"
            theme: root.theme
            title: qsTr("Pause when the Mac gets hot")

            onSwitched: on => root.settings.pauseWhenHot = on
        }
    }

    function batteryText(): string {
        if (!root.status.hasBattery || root.status.batteryPercent === undefined)
            return qsTr("No internal battery detected — these conditions have no effect.");
        const source = root.status.isOnAC ? qsTr("on AC power") : qsTr("on battery");
        return qsTr("Currently %1% • %2").arg(root.status.batteryPercent).arg(source);
    }
}
