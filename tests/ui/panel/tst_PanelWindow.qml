// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Design
import Tarvik.Panel
import ".."

TestCase {
    name: "PanelWindow"

    PlainAppearance {
        id: appearance
    }
    QtObject {
        id: status

        property bool isAwake
        property string reason: "Dozing — nothing to watch"
        property string subtitle: "Nothing running to keep awake for"
        property string details
        property bool isTimedSessionActive
    }
    QtObject {
        id: settings

        property bool isEnabled: true
    }
    PanelWindow {
        id: panel

        appearance: appearance
        status: status
        isComposited: false
        settings: settings
    }
    SignalSpy {
        id: frames

        signalName: "frameSwapped"
        target: panel
    }

    function init() {
        failOnWarning(/.?/);
        status.details = "";
        frames.clear();
        panel.show();
        tryVerify(() => panel.active);
        // The content is laid out with the first frame, which comes after the focus in newer versions of Qt.
        tryVerify(() => frames.count > 0);
    }

    function cleanup() {
        panel.close();
        tryVerify(() => !panel.visible);
    }

    function test_growsAndShrinksWithItsContent() {
        const before = panel.height;
        status.details = "charging 80%";
        tryVerify(() => panel.height > before);
        status.details = "";
        tryCompare(panel, "height", before);
    }
}
