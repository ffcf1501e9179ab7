// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// Chooses an application, one of the installed ones or any other by its desktop file.
Sheet {
    id: root

    required property ApplicationChoice choice
    /// The ids of those that have been chosen before.
    required property var addedIds

    signal chosen(var application)

    height: Math.min(parent.height - theme.scaled(40), theme.scaled(360))
    width: Math.min(parent.width - theme.scaled(40), theme.scaled(380))

    onAboutToShow: (contentItem as AppSearch).begin()

    contentItem: AppSearch {
        addedIds: root.addedIds
        choice: root.choice
        theme: root.theme

        onCancelled: root.close()
        onChosen: application => {
            root.chosen(application);
            root.close();
        }
    }

    Connections {
        function onAdded() {
            root.close();
        }

        target: root.choice
    }
}
