// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Templates as T

T.MenuSeparator {
    id: root

    required property Theme theme

    bottomPadding: theme.scaled(4)
    implicitHeight: topPadding + bottomPadding + 1
    topPadding: theme.scaled(4)

    contentItem: Separator {
        theme: root.theme
    }
}
