// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Mirror

/// The design: colours, sizes and motion, for light and dark. An object that every component is handed, not a singleton,
/// so that two of them can stand side by side in a test.
QtObject {
    id: root

    required property Appearance appearance

    readonly property bool isDark: appearance.isDark
    readonly property bool isHighContrast: appearance.isHighContrast
    readonly property bool isAnimated: appearance.isAnimated
    readonly property bool isRightToLeft: appearance.isRightToLeft
    readonly property double textScale: appearance.textScale

    readonly property color window: isDark ? "#1f2023" : "#f2f2f5"
    readonly property color card: isDark ? "#292a2d" : "#ffffff"
    readonly property color panel: isDark ? "#292a2d" : "#fbfbfc"
    readonly property color menu: isDark ? "#333438" : "#ffffff"
    readonly property color outline: isHighContrast ? secondaryText : isDark ? "#46474c" : "#d3d3d8"
    readonly property color separator: isHighContrast ? secondaryText : isDark ? "#3d3e42" : "#e3e3e7"
    readonly property color hover: isDark ? "#3a3b40" : "#ececef"
    readonly property color pressed: isDark ? "#46474d" : "#dfdfe4"
    readonly property color menuHover: isDark ? "#46474d" : "#ececef"

    readonly property color text: isDark ? "#f3f3f5" : "#1a1a1c"
    readonly property color secondaryText: isHighContrast ? text : isDark ? "#b4b5bb" : "#58585e"
    readonly property color tertiaryText: isHighContrast ? text : isDark ? "#9fa0a7" : "#66666c"
    readonly property color danger: isDark ? "#ff857d" : "#bd1f17"
    readonly property color awake: isDark ? "#32d163" : "#178541"

    readonly property color accent: appearance.accent.valid ? appearance.accent : isDark ? "#366ee0" : "#2363d8"
    /// What is written on the accent colour.
    readonly property color accentText: luminance(accent) > 0.2 ? "#1a1a1c" : "#ffffff"
    /// The accent colour for text and icons; the user's own may be too close to the surface.
    readonly property color accentOnSurface: isDark ? "#7aa5ff" : "#2363d8"
    /// Behind what is chosen.
    readonly property color selection: isDark ? "#2b3a55" : "#e7eefb"
    readonly property color attention: isDark ? "#f0a03c" : "#a85a00"
    readonly property color focusRing: isDark ? "#7aa5ff" : "#2363d8"
    readonly property color switchOff: isHighContrast ? tertiaryText : isDark ? "#7c7d85" : "#8a8a92"
    /// Around a switch whose colour, chosen by the user, can hardly be told from what is behind it.
    readonly property color switchOutline: contrast(accent, card) < 3 || isHighContrast ? secondaryText : "transparent"
    /// On a switch that is off, and on one that is on.
    readonly property color knob: isHighContrast ? panel : "#ffffff"
    readonly property color accentKnob: luminance(accent) > 0.4 ? "#1a1a1c" : "#ffffff"

    readonly property string fontFamily: appearance.fontFamily
    readonly property int largeTitleSize: scaled(26)
    readonly property int titleSize: scaled(22)
    readonly property int subtitleSize: scaled(16)
    readonly property int headlineSize: scaled(14)
    readonly property int bodySize: scaled(13)
    readonly property int calloutSize: scaled(13)
    readonly property int subheadlineSize: scaled(12)
    readonly property int captionSize: scaled(11)
    readonly property int footnoteSize: scaled(11)

    /// What is wider is tiring to read.
    readonly property int columnWidth: scaled(560)
    /// At most, with what else a window manager draws around a window.
    readonly property int titleBarHeight: 48
    readonly property int windowRadius: 10
    readonly property int cardRadius: 10
    readonly property int buttonRadius: 6
    readonly property int rowRadius: 5
    readonly property int iconSize: scaled(16)
    readonly property int slideDuration: isAnimated ? 120 : 0
    readonly property int pageDuration: isAnimated ? 250 : 0

    /// Pixels that grow with the text.
    function scaled(pixels: int): int {
        return Math.round(pixels * textScale);
    }

    /// Relative luminance of the Web Content Accessibility Guidelines, from 0 to 1.
    function luminance(color: color): double {
        const linear = part => part <= 0.04045 ? part / 12.92 : Math.pow((part + 0.055) / 1.055, 2.4);
        return 0.2126 * linear(color.r) + 0.7152 * linear(color.g) + 0.0722 * linear(color.b);
    }

    /// Contrast ratio of the same guidelines, from 1 to 21.
    function contrast(one: color, other: color): double {
        const lights = [luminance(one), luminance(other)];
        return (Math.max(...lights) + 0.05) / (Math.min(...lights) + 0.05);
    }
}
