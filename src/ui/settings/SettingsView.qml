// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// The content of the settings window: five tabs, each a form. Every change takes effect at once.
FocusScope {
    id: root

    required property Theme theme
    required property SettingsMirror settings
    required property StatusMirror status
    required property JournalMirror journal
    required property HooksMirror hooks
    required property UpdaterMirror updater
    required property int agentCount
    /// The installed applications, objects with "bundleID" and "name"; filled after `applicationsWanted`.
    required property var applications

    property alias currentTab: tabs.currentIndex
    readonly property Item currentPage: pages.children[currentTab].item

    signal applicationsWanted
    signal copyText(string text)

    LayoutMirroring.childrenInherit: true
    LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft

    Shortcut {
        sequences: [StandardKey.NextChild, "Ctrl+PgDown"]

        onActivated: tabs.showNext(1)
    }
    Shortcut {
        sequences: [StandardKey.PreviousChild, "Ctrl+PgUp"]

        onActivated: tabs.showNext(-1)
    }
    TabStrip {
        id: tabs

        focus: true
        objectName: "tabs"

        Keys.forwardTo: [root.currentPage]
        theme: root.theme
        width: parent.width

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
    Item {
        id: pages

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: tabs.bottom

        Page {
            tab: 0

            sourceComponent: GeneralTab {
                settings: root.settings
                theme: root.theme
            }
        }
        Page {
            tab: 1

            sourceComponent: TriggersTab {
                agentCount: root.agentCount
                applications: root.applications
                hooks: root.hooks
                settings: root.settings
                theme: root.theme

                onApplicationsWanted: root.applicationsWanted()
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
                theme: root.theme
                updater: root.updater
            }
        }
    }

    /// Made when it is first looked at.
    component Page: Loader {
        required property int tab

        active: visible || item
        anchors.fill: parent
        visible: tabs.currentIndex === tab
    }
}
