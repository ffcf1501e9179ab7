// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// The switch of one agent's hook: below it where the hook is kept and whether it works, or why it could not be written.
SwitchRow {
    id: root

    required property HooksMirror hooks
    /// One of `hooks.agents`.
    required property var agent
    /// Its file could not be written the last time.
    required property bool hasFailed
    required property date now

    readonly property alias docsButton: docs
    readonly property bool isDocsHovered: docs.hovered
    readonly property string path: `~/${agent.configPath}`
    readonly property string health: isOn ? Texts.hookState(agent.id, hooks.lastEvents[agent.id], now) : ""

    caption: hasFailed ? qsTr("Couldn't write ~/%1. If you've edited it by hand, check it's valid JSON — Tarvik won't overwrite a file it can't read.").arg(agent.configPath) : health ? `${path}\n${health}` : path
    isCaptionAlarming: hasFailed
    isOn: hooks.installedIds.includes(agent.id)
    objectName: agent.id
    title: agent.label

    onSwitched: on => on ? hooks.install(agent.id) : hooks.uninstall(agent.id)

    IconButton {
        id: docs

        objectName: `${root.agent.id}Docs`
        systemImage: "questionmark.circle"
        text: qsTr("How hooks of %1 work").arg(root.agent.label)
        theme: root.theme

        onClicked: Qt.openUrlExternally(root.agent.docs)
    }
}
