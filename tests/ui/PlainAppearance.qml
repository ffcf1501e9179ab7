// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

QtObject {
    property bool isDark: false
    property bool isAnimated: true
    property bool isHighContrast: false
    property double textScale: 1
    property color accent
}
