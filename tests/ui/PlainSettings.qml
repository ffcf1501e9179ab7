// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// What the settings window reads and writes, as plain objects.
QtObject {
    readonly property QtObject settings: QtObject {
        property bool keepDisplayAwake: false
        property bool launchAtLogin: true
        property bool watchAgents: true
        property bool watchEditors: false
        property var allowlist: []
        property bool requireAC: false
        property bool batteryLimitEnabled: true
        property int batteryThreshold: 20
        property bool enableOnAC: true
        property bool pauseWhenHot: true
        property bool notifyOnToggle: false
        property bool notifyOnPause: true

        function addToAllowlist(bundleID, name) {
            allowlist = allowlist.concat([{bundleID, name}]);
        }
        function removeFromAllowlist(bundleID) {
            allowlist = allowlist.filter(app => app.bundleID !== bundleID);
        }
    }
    readonly property QtObject status: QtObject {
        property bool hasBattery: true
        property var batteryPercent: 80
        property bool isOnAC: false
        property string thermalText: "normal"
    }
    readonly property QtObject journal: QtObject {
        property ListModel entries: ListModel {}

        signal exported(text: string)

        function record(at, reason, iconName, iconColor) {
            entries.insert(0, {at, reason, iconName, iconColor});
        }
        function clear() {
            entries.clear();
        }
        function exportText() {
            exported("the journal");
        }
    }
    readonly property QtObject hooks: QtObject {
        property var agents: [
            {id: "claude", label: "Claude Code", configPath: ".claude/settings.json"},
            {id: "codex", label: "Codex", configPath: ".codex/hooks.json"}
        ]
        property var installedIds: ["claude"]
        /// Files that cannot be written.
        property var broken: []
        /// What is installed since somebody edited the files; nothing when nobody did.
        property var edited: null

        signal changed(id: string, succeeded: bool)

        function install(id) {
            if (!broken.includes(id))
                installedIds = installedIds.concat([id]);
            changed(id, !broken.includes(id));
        }
        function refresh() {
            installedIds = edited ?? installedIds;
            edited = null;
        }
        function uninstall(id) {
            if (!broken.includes(id))
                installedIds = installedIds.filter(other => other !== id);
            changed(id, !broken.includes(id));
        }
    }
    readonly property QtObject updater: QtObject {
        property bool canCheckForUpdates: true
        property bool automaticallyChecksForUpdates: true
        property bool automaticallyDownloadsUpdates: false
        property var lastUpdateCheckDate
        property int checks: 0

        function checkForUpdates() {
            checks += 1;
        }
    }
}
