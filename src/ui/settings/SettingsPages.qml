// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror
import Tarvik.Request

/// What each tab of the settings shows, in the order of SettingsTabs.
Item {
    id: root

    required property Theme theme
    required property SettingsMirror settings
    required property StatusMirror status
    required property LidClosedMirror lidClosed
    required property JournalMirror journal
    required property HooksMirror hooks
    required property UpdaterMirror updater
    required property AgentRequest agentRequest
    required property int agentCount
    required property ApplicationChoice applications
    required property int currentTab

    /// Null as long as it is being made.
    readonly property Item currentPage: (children[currentTab] as Loader).item as Item

    signal copyText(string text)

    // What a component names of its surroundings cannot be declared before Qt 6.5.
    // qmllint disable unqualified
    Page {
        tab: 0

        sourceComponent: GeneralTab {
            lidClosed: root.lidClosed
            settings: root.settings
            theme: root.theme
        }
    }
    Page {
        tab: 1

        sourceComponent: TriggersTab {
            agentCount: root.agentCount
            agentRequest: root.agentRequest
            applications: root.applications
            hooks: root.hooks
            settings: root.settings
            theme: root.theme
        }
    }
    Page {
        tab: 2

        sourceComponent: PowerTab {
            settings: root.settings
            status: root.status
            theme: root.theme
        }
    }
    Page {
        tab: 3

        sourceComponent: JournalTab {
            journal: root.journal
            theme: root.theme

            onCopyText: text => root.copyText(text)
        }
    }
    Page {
        tab: 4

        sourceComponent: UpdatesTab {
            status: root.status
            theme: root.theme
            updater: root.updater
        }
    }

    /// Made when it is first looked at.
    component Page: Loader {
        required property int tab

        active: visible || item
        anchors.fill: parent
        visible: root.currentTab === tab
    }
    // qmllint enable unqualified
}
