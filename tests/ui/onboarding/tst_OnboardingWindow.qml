// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Onboarding
import Tarvik.Test
import ".."

/// The introduction to lid-closed mode: its steps, what it says of the background helper, and its use by keyboard.
Item {
    TestDesktop {
        id: desktop
    }
    TestTarvik {
        id: tarvik
    }
    ShownTexts {
        id: shownTexts
    }
    Component {
        id: windowComponent

        OnboardingWindow {
            appearance: desktop.appearance
            applicationIcon: ""
            lidClosed: tarvik.lidClosed
        }
    }
    TestCase {
        name: "OnboardingWindow"
        when: windowShown

        readonly property string back: "Back"
        readonly property string proceed: "Continue"
        readonly property string install: "Install background helper…"
        readonly property var texts: [
            ["Keep working, lid closed", "Let agents, builds, and downloads keep running after you shut the lid.",
                "macOS normally sleeps the moment you close the lid. Tarvik can override that — but it needs to install a small background helper first.", proceed],
            ["Skip the password prompts",
                "Install a small background helper so turning lid-closed mode on and off never asks for your admin password — and a safety watchdog can restore normal sleep if Tarvik ever quits or crashes.",
                install, "Optional — Tarvik still works without it; it'll just ask for your password each time you toggle.", back, proceed],
            ["You're all set",
                "Nothing else to do. Whenever Tarvik is keeping your Mac awake, it now keeps going with the lid closed — turn that off under <b>Keep running with the lid closed</b> in Settings.",
                back, "Done"],
        ]
        readonly property string waiting: "Approve Tarvik under System Settings ▸ Login Items, then come back here."
        readonly property string approve: "Approve Tarvik in System Settings ▸ Login Items."
        readonly property string active: "Background helper installed and active."

        property OnboardingWindow window
        readonly property OnboardingView view: window ? window.contentItem.children[0] : null

        function init() {
            failOnWarning(/.?/);
            desktop.isAnimated = false;
            desktop.textScale = 1;
            tarvik.restart();
            window = createTemporaryObject(windowComponent, null);
            open();
        }

        function cleanup() {
            window.close();
        }

        function open() {
            window.show();
            window.requestActivate();
            tryVerify(() => window.active && window.activeFocusItem);
        }

        function goTo(step) {
            view.goTo(step);
            verify(grabImage(view));
        }

        function shown() {
            return shownTexts.below(view).map(text => text.text);
        }

        function find(name) {
            const item = findChild(view, name);
            verify(item, name);
            return item;
        }

        /// What has the keyboard's focus, by its name.
        function focused() {
            return window.activeFocusItem.objectName || window.activeFocusItem.title;
        }

        function test_everyStepHasItsTexts() {
            compare(window.title, "Set up lid-closed mode");
            for (const step of [0, 1, 2]) {
                compare(view.step, step);
                compare(shown(), texts[step]);
                if (step < 2)
                    mouseClick(find("proceed"));
            }
        }

        function test_backGoesBackAsFarAsTheFirstStepWhereItIsNotThere() {
            goTo(2);
            mouseClick(find("back"));
            compare(view.step, 1);
            mouseClick(find("back"));
            compare(view.step, 0);
            compare(find("back").opacity, 0);
            mouseClick(view, 40, view.height - 30);
            find("back").Accessible.pressAction();
            compare(view.step, 0);
        }

        function test_doneIsToldAndCloses() {
            goTo(2);
            mouseClick(find("proceed"));
            verify(!window.visible);
            tryVerify(() => tarvik.stored("clamshellOnboardingComplete") === true);
        }

        function test_closingItOtherwiseEndsNothingAndKeepsTheStep_data() {
            return [{tag: "Escape", close: () => keyClick(Qt.Key_Escape)}, {tag: "close button", close: () => window.close()}];
        }

        function test_closingItOtherwiseEndsNothingAndKeepsTheStep(data) {
            goTo(1);
            data.close();
            tryVerify(() => !window.visible);
            open();
            compare(view.step, 1);
            // A request of its own would have come before this one.
            tarvik.lidClosed.relaunch();
            tryVerify(() => tarvik.asked().length > 0);
            compare(tarvik.asked(), ["Relaunch"]);
            compare(tarvik.stored("clamshellOnboardingComplete"), undefined);
        }

        function test_returnGoesThroughItAll() {
            for (const step of [1, 2]) {
                keyClick(Qt.Key_Return);
                compare(view.step, step);
            }
            keyClick(Qt.Key_Return);
            tryVerify(() => tarvik.stored("clamshellOnboardingComplete") === true);
        }

        function test_theKeyboardReachesWhatThereIs() {
            const seen = [[], [], []];
            for (const step of [0, 1, 2]) {
                goTo(step);
                for (let presses = 0; presses < 4; ++presses) {
                    seen[step].push(focused());
                    keyClick(Qt.Key_Tab);
                }
            }
            compare(seen[0], ["Keep working, lid closed", "proceed", "proceed", "proceed"]);
            compare(seen[1], ["Skip the password prompts", "install", "back", "proceed"]);
            compare(seen[2], ["You're all set", "back", "proceed", "back"]);
        }

        function test_returnOnBackGoesBack() {
            goTo(2);
            keyClick(Qt.Key_Tab);
            compare(focused(), "back");
            keyClick(Qt.Key_Return);
            compare(view.step, 1);
            compare(focused(), "Skip the password prompts");
        }

        function test_aStepTellsScreenReadersWhichItIs() {
            for (const step of [0, 1, 2]) {
                goTo(step);
                compare(window.activeFocusItem, view.currentPage);
                compare(view.currentPage.Accessible.name, texts[step][0]);
                verify(view.currentPage.Accessible.description.startsWith(`Step ${step + 1} of 3. ${texts[step][1].slice(0, 40)}`));
            }
            verify(!view.currentPage.Accessible.description.includes("*"));
        }

        function test_theHelpersStateIsShownLive_data() {
            const error = "The background helper isn’t responding.";
            return [
                {tag: "not installed", lines: ["helper missing"], shown: [install]},
                {tag: "an error", lines: ["install-helper", `installed-helper ${error}`], shown: [install, error]},
                {tag: "waiting for approval", lines: ["helper unapproved", "install-helper"], shown: [waiting, "Open Login Items to approve…", approve]},
                {tag: "installed", lines: ["helper installed"], shown: [active]},
                {tag: "installed, with an older message", lines: ["install-helper", `installed-helper ${error}`, "helper installed"], shown: [active], message: error},
            ];
        }

        function test_theHelpersStateIsShownLive(data) {
            goTo(1);
            data.lines.forEach(line => tarvik.play(line));
            if (data.message)
                compare(tarvik.lidClosed.lastHelperError, data.message);
            compare(shown(), texts[1].slice(0, 2).concat(data.shown, texts[1].slice(3)));
        }

        function test_installingWaitsForApprovalAndIsConfirmed() {
            goTo(1);
            mouseClick(find("install"));
            tryVerify(() => tarvik.helperCalls().includes("register"));
            compare(tarvik.asked(), ["InstallHelper"]);
            tarvik.play("helper unapproved");
            tarvik.play("installed-helper");
            compare(tarvik.shown(), ["login items"]);
            verify(!find("install").isProminent);
            compare(find("install").Accessible.description, approve);
            mouseClick(find("install"));
            tryVerify(() => tarvik.shown().length === 2);
            compare(tarvik.shown()[1], "login items");
            tarvik.play("helper installed");
            verify(find("installed").visible && !find("install").visible);
            compare(view.step, 1);
        }

        function test_theFocusIsNotLostWithTheButton() {
            goTo(1);
            keyClick(Qt.Key_Tab);
            compare(focused(), "install");
            keyClick(Qt.Key_Space);
            tryVerify(() => tarvik.helperCalls().includes("register"));
            tarvik.play("helper installed");
            tarvik.play("installed-helper");
            compare(focused(), "Skip the password prompts");
            keyClick(Qt.Key_Return);
            compare(view.step, 2);
        }

        function test_theDotsSayWhichStepItIs() {
            goTo(1);
            const dots = find("dots");
            const circles = [0, 1, 2].map(index => dots.children[index]);
            compare(dots.spacing, 6);
            for (const circle of circles) {
                compare([circle.width, circle.height, circle.radius], [7, 7, 3.5]);
                compare(circle.opacity, circle === circles[1] ? 1 : 0.3);
            }
            verify(Qt.colorEqual(circles[1].color, dots.theme.accent));
            verify(Qt.colorEqual(circles[2].color, dots.theme.secondaryText));
        }

        function test_pagesMoveUnlessMotionIsUnwanted_data() {
            return [{tag: "wanted", isAnimated: true}, {tag: "unwanted", isAnimated: false}];
        }

        function test_pagesMoveUnlessMotionIsUnwanted(data) {
            desktop.isAnimated = data.isAnimated;
            const before = view.currentPage;
            keyClick(Qt.Key_Return);
            compare(before.visible, data.isAnimated);
            compare(view.currentPage.opacity < 1, data.isAnimated);
            tryVerify(() => !before.visible && view.currentPage.opacity === 1);
        }

        function test_everythingFits_data() {
            return [{tag: "text at 1", textScale: 1}, {tag: "text at 2", textScale: 2}];
        }

        function test_everythingFits(data) {
            if (data.textScale !== 1) {
                for (let index = 0; index < 4; ++index)
                    ignoreWarning("This plugin does not support propagateSizeHints()");
            }
            desktop.textScale = data.textScale;
            // The longest of its pages.
            tarvik.play("helper unapproved");
            tarvik.play("install-helper");
            for (const step of [0, 1, 2]) {
                goTo(step);
                for (const text of shownTexts.below(view))
                    compare(shownTexts.flaw(text, view), "");
            }
        }
    }
}
