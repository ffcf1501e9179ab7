// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik

TestCase {
    id: test

    name: "Theme"

    PlainAppearance {
        id: appearance
    }
    PlainAppearance {
        id: plain
    }
    Theme {
        id: theme

        appearance: appearance
    }

    function init() {
        failOnWarning(/.?/);
        appearance.isDark = false;
        appearance.isHighContrast = false;
        appearance.textScale = 1;
        appearance.accent = plain.accent;
    }

    function contrast(one: color, other: color): double {
        const lights = [theme.luminance(one), theme.luminance(other)].sort((a, b) => b - a);
        return (lights[0] + 0.05) / (lights[1] + 0.05);
    }

    function test_textIsReadable_data() {
        const rows = [];
        for (const isDark of [false, true]) {
            for (const surface of ["window", "card", "panel", "menu", "hover", "menuHover"])
                rows.push({ tag: (isDark ? "dark " : "light ") + surface, isDark: isDark, surface: surface });
        }
        return rows;
    }

    function test_textIsReadable(row) {
        appearance.isDark = row.isDark;
        const surface = theme[row.surface];
        verify(contrast(theme.text, surface) >= 7, `text ${contrast(theme.text, surface)}`);
        const isHover = row.surface.toLowerCase().endsWith("hover");
        for (const role of isHover ? ["secondaryText"] : ["secondaryText", "tertiaryText", "danger"])
            verify(contrast(theme[role], surface) > 4.5, `${role} ${contrast(theme[role], surface)}`);
    }

    function test_controlsCanBeSeen_data() {
        return [{ tag: "light", isDark: false }, { tag: "dark", isDark: true }];
    }

    function test_controlsCanBeSeen(row) {
        appearance.isDark = row.isDark;
        for (const role of ["awake", "accent", "focusRing"])
            verify(contrast(theme[role], theme.panel) >= 3, `${role} ${contrast(theme[role], theme.panel)}`);
        verify(contrast(theme.accentText, theme.accent) > 4.5, contrast(theme.accentText, theme.accent));
    }

    function test_highContrastDarkensWhatIsFaint_data() {
        return [{ tag: "light", isDark: false }, { tag: "dark", isDark: true }];
    }

    function test_highContrastDarkensWhatIsFaint(row) {
        appearance.isDark = row.isDark;
        appearance.isHighContrast = true;
        for (const role of ["secondaryText", "tertiaryText"])
            verify(contrast(theme[role], theme.panel) >= 7, role);
        for (const role of ["switchOff", "outline", "separator"])
            verify(contrast(theme[role], theme.panel) >= 3, role);
    }

    function test_theUsersAccentIsTaken() {
        appearance.accent = "#ffcc00";
        compare(theme.accent, "#ffcc00");
        verify(contrast(theme.accentText, theme.accent) >= 4.5);
        appearance.accent = "#7a1fa2";
        verify(contrast(theme.accentText, theme.accent) >= 4.5);
    }

    function test_everythingGrowsWithTheText() {
        compare(theme.bodySize, 13);
        appearance.textScale = 2;
        compare(theme.bodySize, 26);
        compare(theme.iconSize, 32);
    }
}
