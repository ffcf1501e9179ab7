// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// A switch for each agent that can announce its turns. Which are on is what the agents' own files say.
Section {
    id: root

    required property HooksMirror hooks
    /// The ids of agents whose file could not be written the last time.
    property var failed: []

    footer: qsTr("Hooks tell Tarvik when an agent starts and finishes a turn, so an agent sitting idle at its prompt lets the Mac sleep. Turning one on adds a Tarvik entry to that agent's config file and nothing else — and Tarvik stops watching for that agent's process, since its turns are the better signal. Turning it off removes the entry and restores process detection.")
    heading: qsTr("Lifecycle hooks")

    // The agents' files change without anybody telling. The window asks when it opens.
    onVisibleChanged: if (visible)
        hooks.refresh()

    Repeater {
        id: rows

        model: root.hooks.agents

        // What a component names of its surroundings cannot be declared before Qt 6.5.
        // qmllint disable unqualified
        SwitchRow {
            required property var modelData

            readonly property bool hasFailed: root.failed.includes(modelData.id)

            caption: hasFailed ? qsTr("Couldn't write ~/%1. If you've edited it by hand, check it's valid JSON — Tarvik won't overwrite a file it can't read.").arg(modelData.configPath) : ""
            isCaptionAlarming: hasFailed
            isOn: root.hooks.installedIds.includes(modelData.id)
            objectName: modelData.id
            theme: root.theme
            title: modelData.label

            onSwitched: on => on ? root.hooks.install(modelData.id) : root.hooks.uninstall(modelData.id)
        }
        // qmllint enable unqualified
    }
    Connections {
        function onChanged(id: string, succeeded: bool) {
            root.failed = root.failed.filter(other => other !== id).concat(succeeded ? [] : [id]);
            for (let index = 0; index < rows.count; ++index) {
                const row = rows.itemAt(index) as SwitchRow;
                if (row.objectName === id)
                    row.restore();
            }
        }

        target: root.hooks
    }
}
