// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Tarvik.Design

/// The applications that keep the computer awake while they are open.
Section {
    id: root

    required property QtObject settings
    /// What can be added; filled after `applicationsWanted`.
    required property var applications

    signal applicationsWanted

    heading: qsTr("Apps")

    Repeater {
        model: root.settings.allowlist

        CardRow {
            id: row

            required property var modelData

            theme: root.theme
            title: modelData.name

            IconButton {
                isDestructive: true
                objectName: "remove"
                systemImage: "minus.circle"
                text: qsTr("Remove %1").arg(row.title)
                theme: root.theme

                onClicked: root.settings.removeFromAllowlist(row.modelData.bundleID)
            }
        }
    }
    Item {
        height: empty.height + 20
        visible: root.settings.allowlist.length === 0
        width: parent ? parent.width : 0

        Label {
            id: empty

            anchors.left: parent.left
            anchors.margins: 12
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
        theme: root.theme
        title: ""

        PushButton {
            objectName: "addApp"
            text: qsTr("Add App…")
            theme: root.theme

            onClicked: {
                root.applicationsWanted();
                chooser.open();
            }
        }
    }
    AppChooser {
        id: chooser

        applications: root.applications
        objectName: "appChooser"
        parent: T.Overlay.overlay
        theme: root.theme

        onChosen: application => root.settings.addToAllowlist(application.bundleID, application.name)
    }
}
