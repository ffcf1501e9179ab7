// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror
import Tarvik.Request

/// The content of the settings window: five tabs, each a form. Every change takes effect at once.
FocusScope {
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

    property alias currentTab: tabs.currentIndex
    readonly property alias currentPage: pages.currentPage

    signal copyText(string text)

    LayoutMirroring.childrenInherit: true
    LayoutMirroring.enabled: theme.isRightToLeft

    // Qt 6.4 does not tell its tools of StandardKey.
    // qmllint disable unqualified
    Shortcut {
        sequences: [StandardKey.NextChild, "Ctrl+PgDown"]

        onActivated: tabs.showNext(1)
    }
    Shortcut {
        sequences: [StandardKey.PreviousChild, "Ctrl+PgUp"]

        onActivated: tabs.showNext(-1)
    }
    // qmllint enable unqualified
    // Not the strip itself: screen readers would take that for focused together with any tab in it.
    Item {
        id: strip

        height: tabs.height
        width: parent.width

        Accessible.name: qsTr("Settings")
        Accessible.role: Accessible.PageTabList

        SettingsTabs {
            id: tabs

            focus: true
            objectName: "tabs"

            Keys.forwardTo: [root.currentPage]
            theme: root.theme
            width: parent.width
        }
    }
    SettingsPages {
        id: pages

        agentCount: root.agentCount
        agentRequest: root.agentRequest
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: strip.bottom
        applications: root.applications
        currentTab: root.currentTab
        hooks: root.hooks
        journal: root.journal
        lidClosed: root.lidClosed
        settings: root.settings
        status: root.status
        theme: root.theme
        updater: root.updater

        onCopyText: text => root.copyText(text)
    }
}
