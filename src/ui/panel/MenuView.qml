// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Tarvik.Design
import Tarvik.Mirror

/// The content of the panel: why the computer is or is not kept awake, and the few things to do about it.
FocusScope {
    id: root

    required property Theme theme
    required property StatusMirror status
    required property SettingsMirror settings

    readonly property bool sessionHovered: sessionRow.hovered

    signal lockScreen
    signal openSettings
    signal quit
    /// The panel is to be closed.
    signal dismissed

    LayoutMirroring.childrenInherit: true
    LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft
    focus: true
    implicitHeight: column.implicitHeight
    implicitWidth: Math.max(300, theme.scaled(300))

    Keys.onDownPressed: moveFocus(true)
    Keys.onEscapePressed: dismissed()
    Keys.onUpPressed: moveFocus(false)

    // Has the focus while no control has been chosen with the keyboard. Not the scope itself: screen readers would take
    // that for focused together with any control in it.
    Item {
        id: start

        anchors.fill: parent
        focus: true

        // What a screen reader says when the panel opens.
        Accessible.description: root.status.reason
        Accessible.name: "Tarvik"
        Accessible.role: Accessible.Pane

        Column {
            id: column

            readonly property int rowWidth: width - 2 * padding

            padding: 6
            spacing: 6
            width: parent.width

            StatusHeader {
                details: root.status.details
                headline: root.status.reason
                isAwake: root.status.isAwake
                subtitle: root.status.subtitle
                theme: root.theme
                width: column.rowWidth
            }
            EnableRow {
                objectName: "enableRow"
                settings: root.settings
                theme: root.theme
                width: column.rowWidth
            }
            Separator {
                theme: root.theme
                width: column.rowWidth
            }
            SessionRow {
                id: sessionRow

                isTimedSessionActive: root.status.isTimedSessionActive
                objectName: "sessionRow"
                theme: root.theme
                width: column.rowWidth

                onChosen: minutes => root.status.setTimedSession(minutes)
            }
            MenuRow {
                objectName: "lockRow"
                systemImage: "lock.display"
                theme: root.theme
                title: qsTr("Lock & leave")
                width: column.rowWidth

                action: T.Action {
                    onTriggered: {
                        root.lockScreen();
                        root.dismissed();
                    }
                }
            }
            Separator {
                theme: root.theme
                width: column.rowWidth
            }
            MenuRow {
                objectName: "settingsRow"
                systemImage: "gearshape"
                theme: root.theme
                title: qsTr("Settings…")
                width: column.rowWidth

                action: T.Action {
                    onTriggered: {
                        root.openSettings();
                        root.dismissed();
                    }
                }
            }
            MenuRow {
                objectName: "quitRow"
                systemImage: "power"
                theme: root.theme
                title: qsTr("Quit Tarvik")
                width: column.rowWidth

                action: T.Action {
                    onTriggered: root.quit()
                }
            }
        }
    }

    /// To the next or previous control; the first or last one when none has the focus yet.
    function moveFocus(forward: bool) {
        const current = Window.activeFocusItem ?? start;
        current.nextItemInFocusChain(forward).forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    /// Leaves nothing of the last time: no focus ring, no open menu.
    function reset() {
        sessionRow.menu.close();
        start.forceActiveFocus(Qt.ActiveWindowFocusReason);
    }
}
