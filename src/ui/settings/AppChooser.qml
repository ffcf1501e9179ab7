// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T
import Tarvik.Design

/// Chooses one of the installed applications.
Sheet {
    id: root

    /// Objects with "bundleID" and "name", in the order to show them.
    required property var applications

    readonly property var found: {
        const wanted = search.text.trim().toLowerCase();
        return applications.filter(application => application.name.toLowerCase().includes(wanted));
    }

    signal chosen(var application)

    height: Math.min(parent.height - theme.scaled(40), theme.scaled(360))
    width: Math.min(parent.width - theme.scaled(40), theme.scaled(380))

    onAboutToShow: {
        search.clear();
        search.forceActiveFocus();
    }

    contentItem: Item {
        LayoutMirroring.childrenInherit: true
        LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft

        Label {
            id: heading

            font.pixelSize: root.theme.headlineSize
            font.weight: Font.DemiBold
            text: qsTr("Add App")
            theme: root.theme
            width: parent.width

            Accessible.name: text
            Accessible.role: Accessible.Heading
        }
        TextField {
            id: search

            anchors.top: heading.bottom
            anchors.topMargin: root.theme.scaled(12)
            objectName: "appSearch"
            placeholderText: qsTr("Search")
            theme: root.theme
            width: parent.width

            Keys.onDownPressed: list.incrementCurrentIndex()
            Keys.onUpPressed: list.decrementCurrentIndex()
            onAccepted: root.choose(list.currentIndex)
        }
        Rectangle {
            anchors.bottom: cancel.top
            anchors.bottomMargin: root.theme.scaled(12)
            anchors.top: search.bottom
            anchors.topMargin: root.theme.scaled(8)
            border.color: root.theme.separator
            color: root.theme.card
            radius: root.theme.cardRadius
            width: parent.width

            ListView {
                id: list

                anchors.fill: parent
                anchors.margins: 1
                anchors.topMargin: root.theme.scaled(4)
                anchors.bottomMargin: root.theme.scaled(4)
                boundsBehavior: Flickable.StopAtBounds
                clip: true
                highlightMoveDuration: 0
                model: root.found
                objectName: "appList"

                Accessible.name: qsTr("Installed applications")
                Accessible.role: Accessible.List
                T.ScrollBar.vertical: ScrollBar {
                    id: bar

                    theme: root.theme
                }

                delegate: ListRow {
                    required property int index
                    required property var modelData

                    isCurrent: ListView.isCurrentItem
                    text: modelData.name
                    theme: root.theme
                    width: list.width - 2 * x
                    x: bar.width

                    onClicked: root.choose(index)
                }
            }
            Label {
                anchors.centerIn: parent
                color: root.theme.tertiaryText
                text: qsTr("No such application.")
                theme: root.theme
                visible: list.count === 0

                Accessible.name: text
                Accessible.role: Accessible.StaticText
            }
        }
        PushButton {
            id: cancel

            anchors.bottom: parent.bottom
            anchors.right: parent.right
            text: qsTr("Cancel")
            theme: root.theme

            onClicked: root.close()
        }
    }

    function choose(index: int) {
        if (index < 0 || index >= found.length)
            return;
        chosen(found[index]);
        close();
    }
}
