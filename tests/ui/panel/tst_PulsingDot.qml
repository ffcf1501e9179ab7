// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Design
import Tarvik.Panel
import Tarvik.Test

Item {
    id: root

    height: 100
    width: 100

    TestDesktop {
        id: desktop
    }
    Theme {
        id: theme

        appearance: desktop.appearance
    }
    PulsingDot {
        id: dot

        active: true
        anchors.centerIn: parent
        period: 1.6
        theme: theme
    }
    TestCase {
        name: "PulsingDot"
        when: windowShown

        readonly property Item halo: findChild(dot, "halo")
        readonly property Item core: findChild(dot, "core")

        function init() {
            failOnWarning(/.?/);
            desktop.isAnimated = true;
            dot.active = true;
            dot.visible = true;
        }

        function test_isNinePointsWideAndCentred() {
            compare(dot.width, 9);
            compare(dot.height, 9);
            compare(core.width, 9);
            compare(halo.width, 9);
            compare(halo.transformOrigin, Item.Center);
        }

        function test_thePhaseIsThatOfTheSecondsSince2001_data() {
            const start = Date.UTC(2001, 0, 1);
            return [
                { tag: "the very start", at: start, phase: 0 },
                { tag: "half a period later", at: start + 800, phase: 0.5 },
                { tag: "just before the next", at: start + 1599, phase: 0.999375 },
                { tag: "the next period", at: start + 1600, phase: 0 },
                { tag: "a thousand periods and a quarter", at: start + 1600400, phase: 0.25 }
            ];
        }

        function test_thePhaseIsThatOfTheSecondsSince2001(row) {
            fuzzyCompare(dot.phaseAt(row.at), row.phase, 0.00001);
        }

        function test_theHaloSwellsAndFades_data() {
            return [
                { phase: 0, opacity: 0.5, scale: 1 },
                { phase: 0.5, opacity: 0.25, scale: 1.75 },
                { phase: 0.75, opacity: 0.125, scale: 2.125 }
            ].map(row => Object.assign(row, { tag: `phase ${row.phase}` }));
        }

        function test_theHaloSwellsAndFades(row) {
            desktop.isAnimated = false;
            dot.phase = row.phase;
            fuzzyCompare(halo.opacity, row.opacity, 0.0001);
            fuzzyCompare(halo.scale, row.scale, 0.0001);
            compare(core.color, theme.awake);
        }

        function test_whileInactiveThereIsNoHalo() {
            dot.phase = 0.5;
            dot.active = false;
            compare(halo.opacity, 0);
            compare(halo.scale, 1);
            compare(core.color, theme.secondaryText);
        }

        function test_itMovesWhileActive() {
            const before = dot.phase;
            tryVerify(() => dot.phase !== before);
        }

        function test_nothingMovesWhile_data() {
            return [
                { tag: "inactive", stop: () => dot.active = false },
                { tag: "hidden", stop: () => dot.visible = false },
                { tag: "animations are off", stop: () => desktop.isAnimated = false }
            ];
        }

        function test_nothingMovesWhile(row) {
            verify(dot.isRunning);
            row.stop();
            verify(!dot.isRunning);
        }

        function test_itIsHiddenFromScreenReaders() {
            verify(dot.Accessible.ignored);
            verify(halo.Accessible.ignored);
        }
    }
}
