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
    property date now: new Date()
    readonly property bool isShown: visible && Window.visibility !== Window.Hidden
    readonly property bool isActive: visible && Window.active

    heading: qsTr("Lifecycle hooks")
    introduction: qsTr("Hooks tell Tarvik when an agent starts and finishes a turn, so an agent sitting idle at its prompt lets the Mac sleep. Turning one on adds a Tarvik entry to that agent's config file and nothing else — and Tarvik stops watching for that agent's process, since its turns are the better signal. Turning it off removes the entry and restores process detection.")
    objectName: "hooks"

    onIsActiveChanged: if (isActive)
        look()

    // The agents' files change without anybody telling, and time goes by.
    Timer {
        objectName: "hookTicking"
        interval: 10000
        repeat: true
        running: root.isShown
        triggeredOnStart: true

        onTriggered: root.look()
    }
    Repeater {
        id: rows

        model: root.hooks.agents

        // What a component names of its surroundings cannot be declared before Qt 6.5.
        // qmllint disable unqualified
        HookRow {
            required property var modelData

            agent: modelData
            hasFailed: root.failed.includes(modelData.id)
            hooks: root.hooks
            now: root.now
            theme: root.theme

            onIsDocsHoveredChanged: if (isDocsHovered)
                tip.parent = docsButton
        }
        // qmllint enable unqualified
    }
    // One for all rows, which are many for what is seldom needed.
    HelpTip {
        id: tip

        readonly property IconButton button: parent as IconButton

        implicitWidth: implicitContentWidth + leftPadding + rightPadding
        isMirrored: button?.mirrored ?? false
        objectName: "docsTip"
        text: button?.text ?? ""
        theme: root.theme
        visible: button?.hovered ?? false
        x: ((button?.width ?? 0) - width) / 2
        y: (button?.height ?? 0) + 2
    }
    Connections {
        function onChanged(id: string, succeeded: bool) {
            root.failed = root.failed.filter(other => other !== id).concat(succeeded ? [] : [id]);
            for (let index = 0; index < rows.count; ++index) {
                const row = rows.itemAt(index) as HookRow;
                if (row.objectName === id)
                    row.restore();
            }
        }

        target: root.hooks
    }

    function look() {
        now = new Date();
        hooks.refresh();
    }
}
