// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Design
import ".."

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

    function test_textIsReadable_data() {
        const rows = [];
        for (const isDark of [false, true]) {
            for (const surface of ["window", "card", "panel", "menu", "hover", "menuHover", "selection"])
                rows.push({ tag: (isDark ? "dark " : "light ") + surface, isDark: isDark, surface: surface });
        }
        return rows;
    }

    function test_textIsReadable(row) {
        appearance.isDark = row.isDark;
        const surface = theme[row.surface];
        verify(theme.contrast(theme.text, surface) >= 7, `text ${theme.contrast(theme.text, surface)}`);
        const others = { hover: ["secondaryText", "danger"], menuHover: ["secondaryText"], selection: ["secondaryText", "accentOnSurface"] };
        for (const role of others[row.surface] ?? ["secondaryText", "tertiaryText", "danger"])
            verify(theme.contrast(theme[role], surface) > 4.5, `${role} ${theme.contrast(theme[role], surface)}`);
    }

    function test_controlsCanBeSeen_data() {
        return [{ tag: "light", isDark: false }, { tag: "dark", isDark: true }];
    }

    function test_controlsCanBeSeen(row) {
        appearance.isDark = row.isDark;
        for (const role of ["awake", "accent", "focusRing", "secondaryText", "switchOff"])
            verify(theme.contrast(theme[role], theme.panel) >= 3, `${role} ${theme.contrast(theme[role], theme.panel)}`);
        verify(theme.contrast(theme.accentText, theme.accent) > 4.5, theme.contrast(theme.accentText, theme.accent));
    }

    function test_highContrastDarkensWhatIsFaint_data() {
        return [{ tag: "light", isDark: false }, { tag: "dark", isDark: true }];
    }

    function test_highContrastDarkensWhatIsFaint(row) {
        appearance.isDark = row.isDark;
        appearance.isHighContrast = true;
        for (const role of ["secondaryText", "tertiaryText"])
            verify(theme.contrast(theme[role], theme.panel) >= 7, role);
        for (const role of ["switchOff", "outline", "separator"])
            verify(theme.contrast(theme[role], theme.panel) >= 3, role);
    }

    function test_theUsersAccentIsTaken() {
        appearance.accent = "#ffcc00";
        compare(theme.accent, "#ffcc00");
        verify(theme.contrast(theme.accentText, theme.accent) >= 4.5);
        appearance.accent = "#7a1fa2";
        verify(theme.contrast(theme.accentText, theme.accent) >= 4.5);
    }

    function test_aSwitchCanBeSeenInEveryAccent_data() {
        return ["#ffcc00", "#ffffff", "#2a2b2e", "#000000", "#e66100", "#3584e4"].map(accent => ({ tag: accent, accent: accent }));
    }

    function test_aSwitchCanBeSeenInEveryAccent(row) {
        appearance.accent = row.accent;
        for (const isDark of [false, true]) {
            appearance.isDark = isDark;
            const edge = theme.switchOutline.a ? theme.switchOutline : theme.accent;
            verify(theme.contrast(edge, theme.panel) >= 3, `edge in ${isDark ? "dark" : "light"}`);
            verify(theme.contrast(theme.accentKnob, theme.accent) >= 2.2, theme.contrast(theme.accentKnob, theme.accent));
            for (appearance.isHighContrast of [true, false])
                verify(theme.contrast(theme.knob, theme.switchOff) >= 3, `knob in ${isDark ? "dark" : "light"}`);
        }
    }

    function test_everythingGrowsWithTheText() {
        compare(theme.bodySize, 13);
        appearance.textScale = 2;
        compare(theme.bodySize, 26);
        compare(theme.iconSize, 32);
    }
}
