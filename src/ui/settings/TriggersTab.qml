// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Agents
import Tarvik.Design
import Tarvik.Mirror
import Tarvik.Request

/// What counts as work: agents, their hooks, editors and chosen applications.
Form {
    id: root

    required property SettingsMirror settings
    required property HooksMirror hooks
    required property AgentRequest agentRequest
    required property int agentCount
    required property ApplicationChoice applications

    Section {
        heading: qsTr("Coding agents")
        theme: root.theme

        SwitchRow {
            caption: qsTr("Keep the Mac awake while any of %1 known coding agents is running.").arg(root.agentCount)
            isOn: root.settings.watchAgents
            objectName: "watchAgents"
            theme: root.theme
            title: qsTr("Watch coding agents")

            onSwitched: on => root.settings.watchAgents = on
        }
        AgentListRow {
            request: root.agentRequest
            theme: root.theme
        }
    }
    HookSetupList {
        hooks: root.hooks
        theme: root.theme
    }
    Section {
        footer: qsTr("Cursor, Zed, Warp and friends run their agent inside the editor, so Tarvik can only tell that the app is open — not that it's working. Your Mac stays awake for as long as the editor is running.")
        theme: root.theme

        SwitchRow {
            isOn: root.settings.watchEditors
            objectName: "watchEditors"
            theme: root.theme
            title: qsTr("Keep awake while an AI editor is open")

            onSwitched: on => root.settings.watchEditors = on
        }
    }
    AllowedApps {
        applications: root.applications
        settings: root.settings
        theme: root.theme
    }
}
