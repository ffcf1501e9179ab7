// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// New versions: whether they are looked for, and looking for them now.
Form {
    id: root

    required property UpdaterMirror updater

    Section {
        theme: root.theme

        SwitchRow {
            isOn: root.updater.automaticallyChecksForUpdates
            objectName: "automaticallyChecks"
            theme: root.theme
            title: qsTr("Automatically check for updates")

            onSwitched: on => root.updater.automaticallyChecksForUpdates = on
        }
        SwitchRow {
            isOn: root.updater.automaticallyDownloadsUpdates
            objectName: "automaticallyDownloads"
            theme: root.theme
            title: qsTr("Automatically download and install updates")

            onSwitched: on => root.updater.automaticallyDownloadsUpdates = on
        }
    }
    Section {
        theme: root.theme

        CardRow {
            caption: Texts.lastCheck(root.updater.lastUpdateCheckDate, new Date())
            objectName: "version"
            theme: root.theme
            title: qsTr("Tarvik %1").arg(Qt.application.version)

            PushButton {
                enabled: root.updater.canCheckForUpdates
                objectName: "check"
                text: qsTr("Check for Updates…")
                theme: root.theme

                onClicked: root.updater.checkForUpdates()
            }
        }
    }
}
