// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Design
import Tarvik.Mirror
import Tarvik.Test

/// Which row of a list is meant.
TestCase {
    id: test

    name: "RowHighlight"

    TestDesktop {
        id: desktop
    }
    Theme {
        id: theme

        appearance: desktop.appearance
    }
    RowHighlight {
        id: highlight

        isCurrent: false
        theme: theme
    }

    function init() {
        failOnWarning(/.?/);
    }

    function cleanup() {
        desktop.accent = undefined;
        desktop.isDark = false;
        desktop.isHighContrast = false;
        highlight.isCurrent = false;
        highlight.isHovered = false;
    }

    function test_inHighContrastItHasAnOutline_data() {
        const rows = [];
        for (const isDark of [false, true]) {
            for (const accent of [undefined, "#ffcc00", "#ffffff", "#000000"])
                rows.push({tag: `${isDark ? "dark" : "light"} ${accent ?? "without an accent"}`, isDark, accent});
        }
        return rows;
    }

    function test_inHighContrastItHasAnOutline(data) {
        desktop.isDark = data.isDark;
        desktop.accent = data.accent;
        desktop.isHighContrast = true;
        for (const states of [[true, false], [false, true], [true, true]]) {
            [highlight.isCurrent, highlight.isHovered] = states;
            verify(highlight.border.width > 0);
            verify(Contrast.between(highlight.border.color, theme.card) >= 3, Contrast.between(highlight.border.color, theme.card));
        }
        highlight.isCurrent = false;
        highlight.isHovered = false;
        compare(highlight.border.width, 0);
    }

    function test_otherwiseItHasNone() {
        highlight.isCurrent = true;
        compare(highlight.border.width, 0);
        verify(Qt.colorEqual(highlight.color, theme.selection));
    }
}
