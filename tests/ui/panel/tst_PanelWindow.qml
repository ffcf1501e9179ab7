// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Design
import Tarvik.Panel
import Tarvik.Test

TestCase {
    name: "PanelWindow"

    TestDesktop {
        id: desktop
    }
    TestTarvik {
        id: tarvik
    }
    PanelWindow {
        id: panel

        appearance: desktop.appearance
        status: tarvik.status
        isComposited: false
        settings: tarvik.settings
    }
    SignalSpy {
        id: frames

        signalName: "frameSwapped"
        target: panel
    }

    function init() {
        failOnWarning(/.?/);
        tarvik.restart();
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
        tarvik.setPower(true, 80);
        tryVerify(() => panel.height > before);
        tarvik.setPower(true);
        tryCompare(panel, "height", before);
    }
}
