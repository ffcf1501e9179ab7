// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Tarvik.Design
import Tarvik.Mirror

/// The applications that keep the computer awake while they are open.
Section {
    id: root

    required property SettingsMirror settings
    required property ApplicationChoice applications

    /// The row that the keyboard has removed, as long as it is there; the focus goes on to the next.
    property int removedRow: -1

    heading: qsTr("Apps")

    Repeater {
        id: rows

        model: root.settings.allowlist

        // What a component names of its surroundings cannot be declared before Qt 6.5.
        // qmllint disable unqualified
        AllowedAppRow {
            caption: root.settings.allowlist.filter(other => other.name === modelData.name).length > 1 ? modelData.bundleID : ""
            theme: root.theme

            onRemoved: {
                if (removeButton.visualFocus)
                    root.removedRow = index;
                root.settings.removeFromAllowlist(modelData.bundleID);
            }
        }
        // qmllint enable unqualified

        onCountChanged: {
            if (root.removedRow < 0)
                return;
            const next = itemAt(Math.min(root.removedRow, count - 1)) as AllowedAppRow;
            root.removedRow = -1;
            (next ? next.removeButton : addButton).forceActiveFocus(Qt.TabFocusReason);
        }
    }
    Item {
        height: empty.height + root.theme.scaled(20)
        visible: root.settings.allowlist.length === 0
        width: parent ? parent.width : 0

        Label {
            id: empty

            anchors.left: parent.left
            anchors.margins: root.theme.scaled(12)
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            color: root.theme.tertiaryText
            font.pixelSize: root.theme.captionSize
            text: qsTr("No apps added. Keep awake while a chosen app is running.")
            theme: root.theme
            wrapMode: Text.Wrap

            Accessible.name: text
            Accessible.role: Accessible.StaticText
        }
    }
    CardRow {
        areTextsIgnored: true
        theme: root.theme
        title: ""

        PushButton {
            id: addButton

            objectName: "addApp"
            systemImage: "plus"
            text: qsTr("Add App…")
            theme: root.theme

            onClicked: {
                root.applications.refresh();
                chooser.open();
            }
        }
    }
    AppChooser {
        id: chooser

        addedIds: Array.from(root.settings.allowlist, application => application.bundleID)
        choice: root.applications
        objectName: "appChooser"
        parent: T.Overlay.overlay
        theme: root.theme

        onChosen: application => root.settings.addToAllowlist(application.bundleID, application.name)
    }
}
