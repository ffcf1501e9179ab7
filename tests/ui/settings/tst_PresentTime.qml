// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Settings

Item {
    height: 50
    width: 50

    /// Goes on all the time.
    PresentTime {
        id: other

        property int ticks: 0

        lifetime: 1

        onNowChanged: ++ticks
    }
    PresentTime {
        id: time

        property int ticks: 0

        lifetime: 1

        onNowChanged: ++ticks
    }
    Component {
        id: windows

        Window {
            height: 50
            width: 50
        }
    }
    TestCase {
        // A window that belongs to another one is active with that one; so this one belongs to none.
        readonly property Window window: windows.createObject(null)

        name: "PresentTime"
        when: windowShown

        Component.onDestruction: window.destroy()

        function init() {
            time.parent = other.parent;
            time.visible = true;
            time.lifetime = 1;
            window.close();
        }

        /// Whether it has gone on while the other did.
        function goesOn() {
            const before = time.ticks;
            const end = other.ticks + 5;
            tryVerify(() => other.ticks > end);
            return time.ticks > before;
        }

        function test_itGoesOnWhileItIsShown() {
            const start = new Date();
            verify(goesOn());
            verify(time.now >= start);
        }

        function test_itStandsStillWhenNobodySeesIt() {
            time.visible = false;
            verify(!goesOn());
            const start = new Date();
            time.visible = true;
            verify(time.now >= start);
            verify(goesOn());
        }

        function test_itStandsStillInAWindowThatIsClosed() {
            time.parent = window.contentItem;
            verify(!goesOn());
            const start = new Date();
            window.show();
            verify(time.now >= start);
            verify(goesOn());
            window.showMinimized();
            tryVerify(() => !time.isShown);
            verify(!goesOn());
        }

        function test_whatStaysTrueForEverIsNotLookedAt() {
            time.lifetime = 0;
            verify(!goesOn());
        }

        function test_aWindowThatIsActivatedLooksAtTheClock() {
            time.lifetime = 0;
            time.parent = window.contentItem;
            window.show();
            window.requestActivate();
            tryVerify(() => window.active);
            const start = new Date();
            other.Window.window.requestActivate();
            tryVerify(() => !window.active);
            verify(time.now >= start);
        }
    }
}
