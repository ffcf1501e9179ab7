// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// A row of a card with a switch. It shows what `isOn` says and asks for a change; a refusal puts the switch back.
CardRow {
    id: root

    property bool isOn: false
    /// Other controls, which stand before the switch.
    default property alias others: others.data

    /// The user wants it on or off.
    signal switched(bool on)

    areTextsIgnored: true

    onTapped: toggle.toggle()

    Row {
        spacing: root.theme.scaled(8)

        Row {
            id: others

            anchors.verticalCenter: parent.verticalCenter
        }
        ToggleSwitch {
            id: toggle

            anchors.verticalCenter: parent.verticalCenter
            checked: root.isOn
            objectName: "toggle"
            theme: root.theme

            Accessible.description: root.caption
            Accessible.name: root.title

            onCheckedChanged: {
                if (checked === root.isOn)
                    return;
                // A screen reader reaches the switch all the same.
                if (root.enabled)
                    root.switched(checked);
                else
                    root.restore();
            }
        }
    }

    /// Shows again what is, after a change that did not come about.
    function restore() {
        toggle.checked = Qt.binding(() => root.isOn);
    }
}
