// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick

/// Tells a screen reader, and nobody else, of something that has happened: they read out an alert as it appears. It goes
/// again, for it is no news to whoever looks around later.
Item {
    id: root

    property string news
    /// Of changes that follow each other quickly, the last one counts: a screen reader asks what an alert says only after
    /// that has appeared, and would read the same twice.
    property string latest

    height: 1
    visible: false
    width: 1

    Accessible.ignored: !news
    Accessible.name: news
    Accessible.role: Accessible.AlertMessage

    Timer {
        id: pause

        interval: 250

        onTriggered: {
            root.visible = false;
            root.news = root.latest;
            root.visible = true;
            novelty.restart();
        }
    }
    Timer {
        id: novelty

        interval: 1000

        onTriggered: {
            root.visible = false;
            root.news = "";
        }
    }

    function tell(text: string) {
        latest = text;
        pause.restart();
    }
}
