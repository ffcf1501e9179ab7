// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Design
import Tarvik.Mirror
import Tarvik.Settings
import Tarvik.Test
import "../ui"

/// Under a translation that marks every text and makes it longer.
Item {
    id: root

    height: 440
    width: 480

    TestDesktop {
        id: desktop
    }
    TestTarvik {
        id: tarvik
    }
    TestWebService {
        id: webService
    }
    ShownTexts {
        id: shownTexts
    }
    Theme {
        id: theme

        appearance: desktop.appearance
    }
    SettingsView {
        id: view

        agentCount: 29
        agentRequest: webService.request
        anchors.fill: parent
        applications: tarvik.applications
        hooks: tarvik.hooks
        journal: tarvik.journal
        lidClosed: tarvik.lidClosed
        status: tarvik.status
        settings: tarvik.settings
        theme: theme
        updater: tarvik.updater
    }
    SignalSpy {
        id: hookChanges

        signalName: "changed"
        target: tarvik.hooks
    }
    TestCase {
        name: "TranslatedSettings"
        when: windowShown

        readonly property var tabs: ["General", "Triggers", "Power", "Journal", "Updates"]
        /// What comes from elsewhere.
        readonly property var untranslated: ["Claude Code", "Codex", "Gemini CLI", "Qwen Code", "Factory Droid", "Copilot CLI", "Paused"]

        function init() {
            failOnWarning(/.?/);
            desktop.isAnimated = false;
            tarvik.restart();
        }

        function isTranslated(line) {
            return untranslated.includes(line) || line.startsWith("~/") || shownTexts.isTranslated(line);
        }

        function check(item, surface, fromTheLocale = []) {
            const shown = shownTexts.below(item);
            for (const text of shown) {
                verify(fromTheLocale.includes(text.text) || text.text.split("\n").every(isTranslated), text.text);
                compare(shownTexts.flaw(text, surface), "");
            }
            return shown.length;
        }

        function test_everythingIsTranslatedAndFits_data() {
            const rows = [];
            for (const textScale of [1, 2]) {
                for (const tab of tabs)
                    rows.push({ tag: `${tab} with text at ${textScale}`, tab: tab, textScale: textScale });
            }
            return rows;
        }

        function test_everythingIsTranslatedAndFits(row) {
            desktop.textScale = row.textScale;
            root.width = theme.scaled(480);
            root.height = theme.scaled(440);
            view.currentTab = tabs.indexOf(row.tab);
            tarvik.editHooks(["claude", "codex", "gemini", "qwen", "droid"]);
            tarvik.sendHookEvent("droid");
            tarvik.hooks.refresh();
            tryVerify(() => tarvik.hooks.installedIds.length === 5);
            // A file that cannot be written has the longest text.
            tarvik.breakHooks("copilot");
            tarvik.hooks.install("copilot");
            hookChanges.wait();
            verify(grabImage(view));
            verify(check(view, view) > tabs.length);
            const now = new Date();
            tarvik.setClock(now);
            tarvik.record("paused", "Paused");
            tarvik.setUpdateChannel("source");
            verify(grabImage(view));
            check(view, view, [Texts.time(now)]);
        }

        function test_theChooserIsTranslatedAndFits() {
            desktop.textScale = 1;
            view.currentTab = tabs.indexOf("Triggers");
            verify(grabImage(view));
            findChild(view, "addApp").clicked();
            const chooser = findChild(view, "appChooser");
            tryCompare(chooser, "opened", true);
            tryVerify(() => tarvik.applications.canBrowse);
            // The heading, the field for the search and two buttons; without a find, what says so is in place of "Search".
            compare(check(chooser.contentItem, chooser.contentItem), 4);
            findChild(chooser.contentItem, "appSearch").text = "x";
            compare(check(chooser.contentItem, chooser.contentItem), 4);
            chooser.close();
            tryVerify(() => !chooser.visible);
        }

        function test_screenReadersAreToldInTheSameLanguage() {
            view.currentTab = tabs.indexOf("Power");
            const toggle = findChild(findChild(view, "pauseWhenHot"), "toggle");
            verify(shownTexts.isTranslated(toggle.Accessible.name));
            verify(shownTexts.isTranslated(findChild(view, "batteryThreshold").Accessible.name));
        }
    }
}
