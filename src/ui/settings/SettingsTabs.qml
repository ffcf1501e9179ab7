// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import Tarvik.Design

/// The tabs of the settings, in the order of SettingsPages.
TabStrip {
    id: root

    TabStripButton {
        systemImage: "gearshape"
        text: qsTr("General")
        theme: root.theme
    }
    TabStripButton {
        systemImage: "bolt"
        text: qsTr("Triggers")
        theme: root.theme
    }
    TabStripButton {
        systemImage: "battery.100"
        text: qsTr("Power")
        theme: root.theme
    }
    TabStripButton {
        isDirectional: true
        systemImage: "list.bullet.rectangle"
        text: qsTr("Journal")
        theme: root.theme
    }
    TabStripButton {
        systemImage: "arrow.triangle.2.circlepath"
        text: qsTr("Updates")
        theme: root.theme
    }
}
