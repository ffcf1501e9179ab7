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
    /// Around what is pressed or written into, to be told from any surface that it lies on.
    readonly property color controlOutline: isHighContrast ? secondaryText : isDark ? "#606168" : "#aeaeb5"
    readonly property color separator: isHighContrast ? secondaryText : isDark ? "#3d3e42" : "#e3e3e7"
    readonly property color hover: isDark ? "#3a3b40" : "#e3e3e8"
    readonly property color pressed: isDark ? "#46474d" : "#d9d9df"

    readonly property color text: isDark ? "#f3f3f5" : "#1a1a1c"
    readonly property color secondaryText: isHighContrast ? text : isDark ? "#b4b5bb" : "#58585e"
    readonly property color tertiaryText: isHighContrast ? text : isDark ? "#9fa0a7" : "#66666c"
    readonly property color danger: isDark ? "#ff857d" : "#bd1f17"
    readonly property color awake: isDark ? "#32d163" : "#178541"

    /// The user's own or, without one, ours.
    readonly property color wantedAccent: appearance.accent.valid ? appearance.accent : isDark ? "#366ee0" : "#2363d8"
    /// As far as needed darker or lighter than that, so that it can be seen on what it lies on.
    readonly property color accent: Contrast.reached(isHighContrast ? 4.5 : 3, wantedAccent, isDark ? card : window)
    /// What is written on the accent colour.
    readonly property color accentText: Contrast.between("#ffffff", accent) >= 4.5 ? "#ffffff" : "#000000"
    /// The accent colour for text and icons.
    readonly property color accentOnSurface: Contrast.reached(4.5, Contrast.reached(4.5, accent, hover), selection)
    /// Behind what is chosen.
    readonly property color selection: Contrast.tint(card, accent, isDark ? 0.22 : 0.11)
    readonly property color focusRing: Contrast.reached(3, accent, hover)
    readonly property color attention: isDark ? "#f0a03c" : "#a85a00"
    readonly property color switchOff: isHighContrast ? tertiaryText : isDark ? "#7c7d85" : "#8a8a92"
    readonly property color switchOutline: isHighContrast ? secondaryText : "transparent"
    /// On a switch that is off, and on one that is on.
    readonly property color knob: isHighContrast ? panel : "#ffffff"
    readonly property color accentKnob: Contrast.between("#ffffff", accent) >= 2.3 ? "#ffffff" : "#000000"

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
    readonly property int buttonRadius: scaled(6)
    readonly property int rowRadius: scaled(5)
    readonly property int iconSize: scaled(16)
    readonly property int slideDuration: isAnimated ? 120 : 0
    readonly property int pageDuration: isAnimated ? 250 : 0

    /// Pixels that grow with the text.
    function scaled(pixels: int): int {
        return Math.round(pixels * textScale);
    }
}
