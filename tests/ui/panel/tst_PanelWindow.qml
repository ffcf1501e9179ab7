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
        panel.isComposited = false;
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

    function test_theMenuStaysWhereClicksReachIt() {
        panel.isComposited = true;
        tarvik.setTimedSession(10);
        const row = findChild(panel.contentItem, "sessionRow");
        tryVerify(() => row.width === panel.width - 2 * panel.shadowExtent - 12 && !isPolishScheduled(row.parent));
        row.menu.open();
        tryVerify(() => row.menu.opened && row.menu.itemAt(row.menu.count - 1).y > 0);
        const menu = row.menu.contentItem.parent;
        const corner = menu.mapToItem(null, 0, 0);
        verify(corner.x >= panel.shadowExtent);
        verify(corner.y >= panel.shadowExtentAbove);
        verify(corner.x + menu.width <= panel.width - panel.shadowExtent);
        verify(corner.y + menu.height <= panel.height - panel.shadowExtent);
    }

    function test_growsAndShrinksWithItsContent() {
        const before = panel.height;
        tarvik.setPower(true, 80);
        tryVerify(() => panel.height > before);
        tarvik.setPower(true);
        tryCompare(panel, "height", before);
    }
}
