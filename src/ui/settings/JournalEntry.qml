// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// An entry of the history, with its day above it where it is the first of that.
Column {
    id: root

    required property Theme theme
    required property date now
    required property date at
    required property string day
    required property string reason
    required property string iconName
    required property string iconColor
    required property bool isFirstOfDay
    /// The one that the keyboard has reached.
    property bool isCurrent: false

    readonly property alias timeText: row.timeText

    JournalHeading {
        day: root.day
        now: root.now
        theme: root.theme
        visible: root.isFirstOfDay
        width: root.width
    }
    JournalRow {
        id: row

        at: root.at
        day: root.day
        iconColor: root.iconColor
        iconName: root.iconName
        isCurrent: root.isCurrent
        isFirstOfDay: root.isFirstOfDay
        now: root.now
        reason: root.reason
        theme: root.theme
        width: root.width
    }
}
