// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// New versions: whether they are looked for, and looking for them now; where none can be had here, how they come.
Form {
    id: root

    required property UpdaterMirror updater
    required property StatusMirror status

    /// By the channels through which new versions come without being looked for here.
    readonly property var otherChannels: ({
            system: qsTr("This copy is updated together with the other packages of this computer."),
            source: qsTr("This copy was built from source. To update it, build a newer version."),
            manual: qsTr("This copy does not come from a package. To update it, install a newer version in its place.")
        })

    PresentTime {
        id: present

        lifetime: Texts.untilNextAge(root.updater.lastUpdateCheckDate, now)
    }
    Section {
        objectName: "automatic"
        theme: root.theme
        // Nobody would carry out what they are set to.
        visible: !(root.updater.updateChannel in root.otherChannels)

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
        footer: root.status.upgradePending
            ? qsTr("An update is installed. Tarvik restarts when the work has ended and its windows are closed.")
            : root.otherChannels[root.updater.updateChannel] ?? ""
        objectName: "thisCopy"
        theme: root.theme

        CardRow {
            caption: Texts.lastCheck(root.updater.lastUpdateCheckDate, present.now)
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
