// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import Tarvik.Design
import Tarvik.Mirror

/// Three steps, one page each.
FocusScope {
    id: root

    required property Theme theme
    required property LidClosedMirror lidClosed
    required property url applicationIcon

    property int step: 0
    readonly property int lastStep: 2
    readonly property OnboardingPage currentPage: pages.children[step]

    /// The user has come to the end and wants no more of it.
    signal done

    implicitHeight: theme.scaled(440)
    implicitWidth: theme.scaled(480)

    LayoutMirroring.childrenInherit: true
    LayoutMirroring.enabled: theme.isRightToLeft

    Keys.forwardTo: [currentPage]
    Keys.onEnterPressed: proceed()
    Keys.onReturnPressed: proceed()

    Item {
        id: pages

        // What is scrolled ends clear of the dots.
        anchors.bottom: dots.top
        anchors.bottomMargin: root.theme.scaled(6)
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top

        WelcomePage {
            applicationIcon: root.applicationIcon
            focus: true
            lastStep: root.lastStep
            shownStep: root.step
            step: 0
            theme: root.theme
        }
        HelperPage {
            lastStep: root.lastStep
            lidClosed: root.lidClosed
            shownStep: root.step
            step: 1
            theme: root.theme
        }
        ReadyPage {
            lastStep: root.lastStep
            shownStep: root.step
            step: 2
            theme: root.theme
        }
    }
    StepDots {
        id: dots

        anchors.bottom: back.top
        anchors.bottomMargin: root.theme.scaled(12)
        anchors.horizontalCenter: parent.horizontalCenter
        lastStep: root.lastStep
        objectName: "dots"
        step: root.step
        theme: root.theme
    }
    PushButton {
        id: back

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.margins: root.theme.scaled(20)
        enabled: root.step > 0
        objectName: "back"
        opacity: enabled ? 1 : 0
        text: qsTr("Back")
        theme: root.theme
        visible: opacity > 0

        onClicked: root.goTo(root.step - 1)
    }
    PushButton {
        anchors.bottom: parent.bottom
        anchors.margins: root.theme.scaled(20)
        anchors.right: parent.right
        isProminent: true
        objectName: "proceed"
        text: root.step < root.lastStep ? qsTr("Continue") : qsTr("Done")
        theme: root.theme

        onClicked: root.proceed()
    }

    function proceed() {
        if (step < lastStep)
            goTo(step + 1);
        else
            done();
    }

    function goTo(next: int) {
        step = next;
        // A screen reader tells what comes to have the focus.
        currentPage.forceActiveFocus();
    }
}
