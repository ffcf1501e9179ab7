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
            caption: root.lastCheck(new Date())
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

    function lastCheck(now: date): string {
        const date = root.updater.lastUpdateCheckDate;
        return date ? qsTr("Last checked %1").arg(ago((now - date) / 1000)) : qsTr("Not checked yet.");
    }

    /// The largest whole unit of `seconds` that have passed.
    function ago(seconds: double): string {
        const units = [[31536000, qsTr("1 year ago"), qsTr("%1 years ago")], [2592000, qsTr("1 month ago"), qsTr("%1 months ago")], [604800, qsTr("1 week ago"), qsTr("%1 weeks ago")], [86400, qsTr("1 day ago"), qsTr("%1 days ago")], [3600, qsTr("1 hour ago"), qsTr("%1 hours ago")], [60, qsTr("1 minute ago"), qsTr("%1 minutes ago")], [1, qsTr("1 second ago"), qsTr("%1 seconds ago")]];
        for (const [length, one, many] of units) {
            const count = Math.floor(seconds / length);
            if (count > 0)
                return count === 1 ? one : many.arg(count);
        }
        return qsTr("%1 seconds ago").arg(0);
    }
}
