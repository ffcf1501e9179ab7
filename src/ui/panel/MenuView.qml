// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// The content of the panel: why the computer is or is not kept awake, and the few things to do about it.
FocusScope {
    id: root

    required property Theme theme
    required property StatusMirror status
    required property SettingsMirror settings

    readonly property alias announcement: announcement
    readonly property alias tip: content.tip
    readonly property bool sessionHovered: content.sessionRow.hovered
    /// Changes with what is going on, not with each minute that passes.
    readonly property string situation: status.reason.replace(/[0-9]+/g, "")

    signal lockScreen
    signal openSettings
    signal quit
    /// The panel is to be closed.
    signal dismissed

    LayoutMirroring.childrenInherit: true
    LayoutMirroring.enabled: theme.isRightToLeft
    focus: true
    implicitHeight: content.implicitHeight
    implicitWidth: Math.max(300, theme.scaled(300))

    Keys.onDownPressed: moveFocus(true)
    Keys.onEscapePressed: tip.isWanted ? tip.isWanted = false : dismissed()
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_F1;
        if (event.accepted)
            tip.isWanted = !tip.isWanted;
    }
    Keys.onUpPressed: moveFocus(false)
    onSituationChanged: {
        if (Window.active)
            announcement.tell(status.reason);
    }

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

        PanelContent {
            id: content

            settings: root.settings
            status: root.status
            theme: root.theme
            width: parent.width

            onLockScreen: {
                root.lockScreen();
                root.dismissed();
            }
            onOpenSettings: {
                root.openSettings();
                root.dismissed();
            }
            onQuit: root.quit()
        }
        Announcement {
            id: announcement

            readonly property string answer: root.status.why.answer

            onAnswerChanged: answer && tell(answer)
        }
    }

    /// To the next or previous control; the first or last one when none has the focus yet.
    function moveFocus(forward: bool) {
        const current = Window.activeFocusItem ?? start;
        current.nextItemInFocusChain(forward).forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    /// Leaves nothing of the last time: no focus ring, no open menu.
    function reset() {
        content.sessionRow.menu.close();
        tip.isWanted = false;
        start.forceActiveFocus(Qt.ActiveWindowFocusReason);
    }
}
