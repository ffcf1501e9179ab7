// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// Whether the computer goes on running with its lid closed, and the helper that does so without a password.
Section {
    id: root

    required property SettingsMirror settings
    required property LidClosedMirror lidClosed

    footer: lidClosed.hasLid ? "" : qsTr("This computer has no lid — these settings have no effect.")
    heading: qsTr("Lid closed")

    SwitchRow {
        isOn: root.settings.clamshellEnabled
        objectName: "clamshellEnabled"
        theme: root.theme
        title: qsTr("Keep running with the lid closed")

        onSwitched: on => root.settings.clamshellEnabled = on
    }
    SwitchRow {
        enabled: root.settings.clamshellEnabled
        isOn: root.settings.screenOffOnLidClose
        objectName: "screenOffOnLidClose"
        theme: root.theme
        title: qsTr("Turn the screen off when the lid closes")

        onSwitched: on => root.settings.screenOffOnLidClose = on
    }
    HelperRow {
        lidClosed: root.lidClosed
        objectName: "helper"
        theme: root.theme
        visible: root.lidClosed.hasLid
    }
}
