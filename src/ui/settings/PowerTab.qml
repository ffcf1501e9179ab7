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
        CardRow {
            areTextsIgnored: true
            theme: root.theme
            title: qsTr("Battery level")
            visible: root.settings.batteryLimitEnabled

            Row {
                spacing: root.theme.scaled(8)

                StepSlider {
                    from: 5
                    objectName: "batteryThreshold"
                    stepSize: 5
                    theme: root.theme
                    to: 95
                    value: root.settings.batteryThreshold

                    Accessible.name: qsTr("Battery level")

                    onMoved: root.settings.batteryThreshold = Math.round(value)
                }
                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    horizontalAlignment: Text.AlignRight
                    objectName: "batteryThresholdText"
                    text: qsTr("%1%").arg(root.settings.batteryThreshold)
                    theme: root.theme
                    width: Math.max(root.theme.scaled(44), implicitWidth)
                }
            }
        }
    }
    Section {
        footer: qsTr("Connecting power switches Tarvik on. Unplugging leaves it on, so turning it off by hand always sticks.")
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
