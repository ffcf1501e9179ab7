// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// Says why the computer is awake, as soon as Tarvik has found out, for as long as somebody wants to know.
HelpTip {
    id: root

    required property WhyMirror why
    /// What is said before, and without, an answer.
    property string preface
    property bool isWanted: false

    delay: 0
    text: `${preface}\n\n${why.answer}`.trim()
    timeout: 30000
    visible: isWanted && text

    onClosed: isWanted = false
    onIsWantedChanged: {
        if (isWanted)
            why.ask();
        else
            why.forget();
    }
}
