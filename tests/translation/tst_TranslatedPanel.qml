// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Design
import Tarvik.Panel
import Tarvik.Test
import "../ui"

/// Under a translation that marks every text and makes it longer.
Item {
    id: root

    height: 900
    width: 900

    TestDesktop {
        id: desktop
    }
    ShownTexts {
        id: shownTexts
    }
    Theme {
        id: theme

        appearance: desktop.appearance
    }
    TestTarvik {
        id: tarvik
    }
    MenuView {
        id: view

        status: tarvik.status
        height: implicitHeight
        settings: tarvik.settings
        theme: theme
        width: implicitWidth
    }
    TestCase {
        name: "TranslatedPanel"
        when: windowShown

        readonly property Item sessionRow: findChild(view, "sessionRow")

        function init() {
            failOnWarning(/.?/);
            desktop.isAnimated = false;
            tarvik.restart();
            tarvik.setPower(true, 80);
            tarvik.set("pauseWhenHot", false);
            tarvik.setThermal(3);
            tarvik.allow(["Blender"]);
            tarvik.run(["claude", "codex"], ["Blender"]);
        }

        function test_everythingIsTranslatedAndFits_data() {
            const rows = [];
            for (const textScale of [1, 2]) {
                for (const isTimedSessionActive of [false, true]) {
                    const tag = `text at ${textScale}, ${isTimedSessionActive ? "with" : "without"} a session`;
                    rows.push({ tag: tag, textScale: textScale, isTimedSessionActive: isTimedSessionActive });
                }
            }
            return rows;
        }

        function test_everythingIsTranslatedAndFits(row) {
            desktop.textScale = row.textScale;
            tarvik.setTimedSession(row.isTimedSessionActive ? 960 : 0);
            sessionRow.menu.open();
            tryVerify(() => sessionRow.menu.opened);
            const enableRow = findChild(view, "enableRow");
            const tip = enableRow.helpTip;
            // The row takes its place with a later frame.
            tryVerify(() => {
                mouseMove(enableRow, 20, 10);
                return tip.visible;
            });
            const shown = shownTexts.below(view).concat(shownTexts.below(sessionRow.menu.contentItem), shownTexts.below(tip.contentItem));
            compare(shown.length, row.isTimedSessionActive ? 14 : 13);
            for (const text of shown) {
                verify(text.text === "Tarvik" || shownTexts.isTranslated(text.text), text.text);
                tryVerify(() => !text.truncated, 1000, text.text);
                tryVerify(() => text.contentWidth <= text.width + 0.5, 1000, `${text.text}: ${text.contentWidth} in ${text.width}`);
                const end = text.mapToItem(null, text.width, 0).x;
                verify(end <= view.width, `${text.text} ends at ${end}`);
            }
            mouseMove(root, 890, 890);
            sessionRow.menu.close();
            tryVerify(() => !sessionRow.menu.visible);
        }

        function test_screenReadersAreToldInTheSameLanguage() {
            for (const name of ["sessionRow", "lockRow", "settingsRow", "quitRow"])
                verify(shownTexts.isTranslated(findChild(view, name).Accessible.name), name);
            verify(shownTexts.isTranslated(findChild(view, "enableRow").toggle.Accessible.description));
        }
    }
}
