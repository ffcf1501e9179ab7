// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design

/// Chooses one of the installed applications.
Sheet {
    id: root

    /// Objects with "bundleID" and "name", in the order to show them.
    required property var applications

    signal chosen(var application)

    height: Math.min(parent.height - theme.scaled(40), theme.scaled(360))
    width: Math.min(parent.width - theme.scaled(40), theme.scaled(380))

    onAboutToShow: (contentItem as AppSearch).begin()

    contentItem: AppSearch {
        applications: root.applications
        theme: root.theme

        onCancelled: root.close()
        onChosen: application => {
            root.chosen(application);
            root.close();
        }
    }
}
