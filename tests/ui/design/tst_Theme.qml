// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Design
import Tarvik.Test

TestCase {
    id: test

    name: "Theme"

    TestDesktop {
        id: desktop
    }
    Theme {
        id: theme

        appearance: desktop.appearance
    }

    function init() {
        failOnWarning(/.?/);
        desktop.isDark = false;
        desktop.isHighContrast = false;
        desktop.textScale = 1;
        desktop.accent = undefined;
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
        desktop.isDark = row.isDark;
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
        desktop.isDark = row.isDark;
        for (const role of ["awake", "accent", "focusRing", "secondaryText", "switchOff"])
            verify(theme.contrast(theme[role], theme.panel) >= 3, `${role} ${theme.contrast(theme[role], theme.panel)}`);
        verify(theme.contrast(theme.accentText, theme.accent) > 4.5, theme.contrast(theme.accentText, theme.accent));
    }

    function test_highContrastDarkensWhatIsFaint_data() {
        return [{ tag: "light", isDark: false }, { tag: "dark", isDark: true }];
    }

    function test_highContrastDarkensWhatIsFaint(row) {
        desktop.isDark = row.isDark;
        desktop.isHighContrast = true;
        for (const role of ["secondaryText", "tertiaryText"])
            verify(theme.contrast(theme[role], theme.panel) >= 7, role);
        for (const role of ["switchOff", "outline", "separator"])
            verify(theme.contrast(theme[role], theme.panel) >= 3, role);
    }

    function test_theUsersAccentIsTaken() {
        desktop.accent = "#ffcc00";
        compare(theme.accent, "#ffcc00");
        verify(theme.contrast(theme.accentText, theme.accent) >= 4.5);
        desktop.accent = "#7a1fa2";
        verify(theme.contrast(theme.accentText, theme.accent) >= 4.5);
    }

    function test_aSwitchCanBeSeenInEveryAccent_data() {
        return ["#ffcc00", "#ffffff", "#2a2b2e", "#000000", "#e66100", "#3584e4"].map(accent => ({ tag: accent, accent: accent }));
    }

    function test_aSwitchCanBeSeenInEveryAccent(row) {
        desktop.accent = row.accent;
        for (const isDark of [false, true]) {
            desktop.isDark = isDark;
            const edge = theme.switchOutline.a ? theme.switchOutline : theme.accent;
            verify(theme.contrast(edge, theme.panel) >= 3, `edge in ${isDark ? "dark" : "light"}`);
            verify(theme.contrast(theme.accentKnob, theme.accent) >= 2.2, theme.contrast(theme.accentKnob, theme.accent));
            for (desktop.isHighContrast of [true, false])
                verify(theme.contrast(theme.knob, theme.switchOff) >= 3, `knob in ${isDark ? "dark" : "light"}`);
        }
    }

    function test_everythingGrowsWithTheText() {
        compare(theme.bodySize, 13);
        desktop.textScale = 2;
        compare(theme.bodySize, 26);
        compare(theme.iconSize, 32);
    }
}
