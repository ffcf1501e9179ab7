// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// A text with digits that are all of the same width, so that it stands still while its number changes. Fonts have such
/// digits of their own, but Qt cannot ask for them before 6.7.
Row {
    id: root

    required property Theme theme
    required property string text

    readonly property int digitWidth: widestDigit(metrics.font)

    // Numbers are read from left to right everywhere.
    LayoutMirroring.childrenInherit: true
    LayoutMirroring.enabled: false

    FontMetrics {
        id: metrics

        font.family: root.theme.fontFamily
        font.pixelSize: root.theme.bodySize
    }
    // What a component names of its surroundings cannot be declared before Qt 6.5.
    // qmllint disable unqualified
    Repeater {
        model: Array.from(root.text)

        Label {
            required property string modelData

            horizontalAlignment: Text.AlignHCenter
            text: modelData
            theme: root.theme
            width: modelData >= "0" && modelData <= "9" ? root.digitWidth : implicitWidth

            Accessible.ignored: true
        }
    }
    // qmllint enable unqualified

    /// In this font, which is that of the metrics: they do not tell that their answers have changed with it.
    function widestDigit(font: font): int {
        return Math.ceil(Math.max(...Array.from("0123456789", digit => metrics.advanceWidth(digit))));
    }
}
