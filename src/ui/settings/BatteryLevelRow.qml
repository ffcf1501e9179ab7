// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// The level of the battery below which nothing is kept awake.
CardRow {
    id: root

    required property SettingsMirror settings

    areTextsIgnored: true
    title: qsTr("Battery level")

    Row {
        spacing: root.theme.scaled(8)

        StepSlider {
            from: 5
            objectName: "batteryThreshold"
            stepSize: 5
            theme: root.theme
            to: 95
            value: root.settings.batteryThreshold

            Accessible.name: root.title

            onMoved: root.settings.batteryThreshold = Math.round(value)
        }
        Item {
            anchors.verticalCenter: parent.verticalCenter
            height: percentage.height
            width: Math.max(root.theme.scaled(44), percentage.width)

            Digits {
                id: percentage

                anchors.right: parent.right
                objectName: "batteryThresholdText"
                text: qsTr("%1%").arg(root.settings.batteryThreshold)
                theme: root.theme
            }
        }
    }
}
