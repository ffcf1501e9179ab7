// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Design
import Tarvik.Mirror
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
            for (const surface of ["window", "card", "panel", "menu", "hover", "selection"])
                rows.push({ tag: (isDark ? "dark " : "light ") + surface, isDark: isDark, surface: surface });
        }
        return rows;
    }

    function test_textIsReadable(row) {
        desktop.isDark = row.isDark;
        const surface = theme[row.surface];
        verify(Contrast.between(theme.text, surface) >= 7, `text ${Contrast.between(theme.text, surface)}`);
        const others = { hover: ["secondaryText", "danger"], selection: ["secondaryText", "accentOnSurface"] };
        for (const role of others[row.surface] ?? ["secondaryText", "tertiaryText", "danger"])
            verify(Contrast.between(theme[role], surface) > 4.5, `${role} ${Contrast.between(theme[role], surface)}`);
    }

    function test_controlsCanBeSeen_data() {
        return [{ tag: "light", isDark: false }, { tag: "dark", isDark: true }];
    }

    function test_controlsCanBeSeen(row) {
        desktop.isDark = row.isDark;
        for (const role of ["awake", "accent", "focusRing", "secondaryText", "switchOff"])
            verify(Contrast.between(theme[role], theme.panel) >= 3, `${role} ${Contrast.between(theme[role], theme.panel)}`);
        verify(Contrast.between(theme.accentText, theme.accent) > 4.5, Contrast.between(theme.accentText, theme.accent));
    }

    function test_highContrastDarkensWhatIsFaint_data() {
        return [{ tag: "light", isDark: false }, { tag: "dark", isDark: true }];
    }

    function test_highContrastDarkensWhatIsFaint(row) {
        desktop.isDark = row.isDark;
        desktop.isHighContrast = true;
        for (const role of ["secondaryText", "tertiaryText"])
            verify(Contrast.between(theme[role], theme.panel) >= 7, role);
        for (const role of ["switchOff", "outline", "separator"])
            verify(Contrast.between(theme[role], theme.panel) >= 3, role);
    }

    function test_controlsHaveAnOutlineOnEverySurface_data() {
        return [{ tag: "light", isDark: false }, { tag: "dark", isDark: true }];
    }

    function test_controlsHaveAnOutlineOnEverySurface(row) {
        desktop.isDark = row.isDark;
        for (const surface of ["window", "card", "panel", "menu"])
            verify(Contrast.between(theme.controlOutline, theme[surface]) >= 1.9, `${surface} ${Contrast.between(theme.controlOutline, theme[surface])}`);
    }

    function test_whatIsPointedAtAndPressedIsSeen_data() {
        return [{ tag: "light", isDark: false }, { tag: "dark", isDark: true }];
    }

    function test_whatIsPointedAtAndPressedIsSeen(row) {
        desktop.isDark = row.isDark;
        verify(Contrast.between(theme.hover, theme.panel) >= 1.2, Contrast.between(theme.hover, theme.panel));
        verify(Contrast.between(theme.pressed, theme.hover) >= 1.05, Contrast.between(theme.pressed, theme.hover));
    }

    function test_theUsersAccentIsTaken() {
        desktop.accent = "#e66100";
        compare(theme.accent, "#e66100");
        desktop.isDark = true;
        compare(theme.accent, "#e66100");
    }

    function test_thereIsOneAccentAndItCanBeSeen_data() {
        const accents = ["#ffcc00", "#ffffff", "#2a2b2e", "#000000", "#e66100", "#3584e4", "#7a1fa2", "#2ec27e", undefined];
        return accents.map(accent => ({ tag: accent ?? "none", accent: accent }));
    }

    function test_thereIsOneAccentAndItCanBeSeen(row) {
        desktop.accent = row.accent;
        const surfaces = ["window", "card", "panel", "menu", "hover"];
        for (const isDark of [false, true]) {
            desktop.isDark = isDark;
            for (desktop.isHighContrast of [true, false]) {
                const tag = `${isDark ? "dark" : "light"}${theme.isHighContrast ? " high contrast" : ""}`;
                const verifyRatio = (least, role, surface) => {
                    const ratio = Contrast.between(theme[role], theme[surface]);
                    verify(ratio >= least, `${role} on ${surface} ${ratio} ${tag}`);
                };
                for (const surface of ["window", "card", "panel"])
                    verifyRatio(theme.isHighContrast ? 4.5 : 3, "accent", surface);
                for (const surface of surfaces.concat("selection"))
                    verifyRatio(4.5, "accentOnSurface", surface);
                for (const surface of surfaces)
                    verifyRatio(3, "focusRing", surface);
                verifyRatio(4.5, "accentText", "accent");
                verifyRatio(4.5, "text", "selection");
                verifyRatio(2.3, "accentKnob", "accent");
                verifyRatio(3, "knob", "switchOff");
                for (const role of ["accentOnSurface", "focusRing"])
                    verify(theme.accent.hslSaturation < 0.1 || Math.abs(theme[role].hslHue - theme.accent.hslHue) < 0.02, `${role} ${tag}`);
            }
        }
    }

    function test_everythingGrowsWithTheText() {
        compare(theme.bodySize, 13);
        desktop.textScale = 2;
        compare(theme.bodySize, 26);
        compare(theme.iconSize, 32);
    }
}
