// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Alerts
import Tarvik.Design
import Tarvik.Onboarding
import Tarvik.Test
import "../ui"

/// Under a translation that marks every text and makes it longer.
Item {
    id: root

    height: 1200
    width: 1200

    TestDesktop {
        id: desktop
    }
    TestTarvik {
        id: tarvik
    }
    ShownTexts {
        id: shownTexts
    }
    Theme {
        id: theme

        appearance: desktop.appearance
    }
    OnboardingView {
        id: view

        applicationIcon: ""
        height: implicitHeight
        lidClosed: tarvik.lidClosed
        theme: theme
        width: implicitWidth
    }
    RestartAlert {
        id: restart

        appearance: desktop.appearance
        lidClosed: tarvik.lidClosed
    }
    HelperApproval {
        id: approval

        appearance: desktop.appearance
    }
    TestCase {
        name: "TranslatedOnboarding"
        when: windowShown

        readonly property string command: "sudo systemctl unmask tarvik-helper.service"

        /// This platform has no use for the size that a window's content comes to, and says so.
        function initTestCase() {
            for (const alert of [restart, approval]) {
                ignoreWarning("This plugin does not support propagateSizeHints()");
                alert.show();
                verify(grabImage(alert.contentItem.children[0]));
                alert.close();
            }
        }

        function init() {
            failOnWarning(/.?/);
            desktop.isAnimated = false;
            tarvik.restart();
        }

        function check(item) {
            const shown = shownTexts.below(item);
            for (const text of shown) {
                verify(text.text === command || shownTexts.isTranslated(text.text), text.text);
                compare(shownTexts.flaw(text, item), "");
            }
            return shown.length;
        }

        function test_everythingIsTranslatedAndFits_data() {
            const rows = [];
            for (const textScale of [1, 2]) {
                for (const [tag, helper, counts] of [["no helper", "missing", [4, 6, 4]], ["waiting", "unapproved", [4, 7, 4]], ["installed", "installed", [4, 6, 4]]])
                    rows.push({tag: `${tag}, text at ${textScale}`, textScale, helper, counts});
            }
            return rows;
        }

        function test_everythingIsTranslatedAndFits(row) {
            desktop.textScale = row.textScale;
            tarvik.play(`helper ${row.helper}`);
            for (const step of [2, 1, 0]) {
                view.goTo(step);
                verify(grabImage(view));
                compare(check(view), row.counts[step]);
            }
        }

        function test_theAlertsAreTranslatedAndFit() {
            desktop.textScale = 1;
            for (const alert of [restart, approval]) {
                alert.show();
                tryVerify(() => alert.visible && alert.contentItem.children[0].height > 0);
                verify(grabImage(alert.contentItem.children[0]));
                verify(check(alert.contentItem.children[0]) >= 4);
                alert.close();
            }
        }

        function test_screenReadersAreToldInTheSameLanguage() {
            verify(shownTexts.isTranslated(view.currentPage.Accessible.name));
            const description = view.currentPage.Accessible.description;
            verify(shownTexts.isTranslated(description) && /^\D+1\D+3/.test(description), description);
        }
    }
}
