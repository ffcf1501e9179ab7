// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// The lengths of a timed session, and the end of a running one.
PopupMenu {
    id: root

    required property bool isTimedSessionActive

    /// The user has chosen a length; 0 cancels the session.
    signal chosen(int minutes)

    // Items of a menu keep their place when they are hidden, so the last two come and go. What a component names of its
    // surroundings cannot be declared before Qt 6.5.
    // qmllint disable unqualified
    Instantiator {
        model: Texts.sessionLengths

        PopupMenuItem {
            required property var modelData

            text: modelData.text
            theme: root.theme

            onTriggered: root.chosen(modelData.minutes)
        }

        onObjectAdded: (index, entry) => root.insertItem(index, entry)
        onObjectRemoved: (index, entry) => root.removeItem(entry)
    }
    Instantiator {
        active: root.isTimedSessionActive

        PopupMenuSeparator {
            theme: root.theme
        }

        onObjectAdded: (index, separator) => root.insertItem(Texts.sessionLengths.length, separator)
        onObjectRemoved: (index, separator) => root.removeItem(separator)
    }
    Instantiator {
        active: root.isTimedSessionActive

        PopupMenuItem {
            text: Texts.cancelSession
            theme: root.theme

            onTriggered: root.chosen(0)
        }

        onObjectAdded: (index, entry) => root.addItem(entry)
        onObjectRemoved: (index, entry) => root.removeItem(entry)
    }
    // qmllint enable unqualified
}
