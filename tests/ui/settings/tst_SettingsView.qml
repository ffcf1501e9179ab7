// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Design
import Tarvik.Settings
import Tarvik.Mirror
import Tarvik.Test

Item {
    id: root

    height: 440
    width: 480

    TestDesktop {
        id: desktop
    }
    Theme {
        id: theme

        appearance: desktop.appearance
    }
    TestTarvik {
        id: tarvik
    }
    TestWebService {
        id: webService
    }
    SettingsView {
        id: view

        property string copied

        agentCount: 29
        agentRequest: webService.request
        applications: tarvik.applications
        anchors.fill: parent
        hooks: tarvik.hooks
        journal: tarvik.journal
        lidClosed: tarvik.lidClosed
        status: tarvik.status
        settings: tarvik.settings
        theme: theme
        updater: tarvik.updater

        onCopyText: text => copied = text
    }
    TestCase {
        id: test

        name: "SettingsView"
        when: windowShown

        readonly property var tabs: ["General", "Triggers", "Power", "Journal", "Updates"]

        function init() {
            tarvik.restart();
            tarvik.editHooks(["claude"]);
            tarvik.hooks.refresh();
            tryVerify(() => tarvik.hooks.installedIds.length === 1);
            view.currentTab = 0;
            view.copied = "";
            desktop.opened = [];
            desktop.offerFiles(true);
            tarvik.installApplications({"org.blender": "Blender", "fr.handbrake": "HandBrake", "org.gimp": "GIMP"});
            waitForRendering(view);
        }

        function show(tab) {
            view.currentTab = tabs.indexOf(tab);
        }

        function find(name) {
            const item = findChild(view, name);
            verify(item, name);
            return item;
        }

        function texts(item) {
            let found = item.visible && item.text ? [item.text] : [];
            for (let index = 0; index < item.children.length; ++index)
                found = found.concat(texts(item.children[index]));
            return found;
        }

        function labelled(item, text) {
            return item.text === text ? item : Array.from(item.children).map(child => labelled(child, text)).find(found => found);
        }

        function scrollTo(item) {
            view.currentPage.show(item);
            waitForRendering(view);
        }

        function tryItem(list, index) {
            tryVerify(() => list.itemAtIndex(index) !== null);
            return list.itemAtIndex(index);
        }

        function click(name) {
            const item = find(name);
            scrollTo(item);
            mouseClick(item, item.width - 20, item.height / 2);
        }

        function test_tabsAreInOrder() {
            const bar = find("tabs");
            compare(Array.from({length: bar.count}, (_, index) => bar.itemAt(index).text), tabs);
        }

        function test_tabsChangeByClickAndKey() {
            const bar = find("tabs");
            mouseClick(bar.itemAt(2));
            compare(view.currentTab, 2);
            keyClick(Qt.Key_Right);
            compare(view.currentTab, 3);
            verify(bar.itemAt(3).activeFocus);
            keyClick(Qt.Key_Right);
            keyClick(Qt.Key_Right);
            compare(view.currentTab, 4);
            keyClick(Qt.Key_Left);
            compare(view.currentTab, 3);
        }

        function test_switchesWriteAtOnce_data() {
            return [
                {tag: "keepDisplayAwake", tab: "General", title: "Also keep the display awake"},
                {tag: "notifyOnToggle", tab: "General", title: "Notify every time Tarvik starts or stops"},
                {tag: "notifyOnPause", tab: "General", title: "Notify when paused by battery or heat"},
                {tag: "watchAgents", tab: "Triggers", title: "Watch coding agents"},
                {tag: "watchEditors", tab: "Triggers", title: "Keep awake while an AI editor is open"},
                {tag: "requireAC", tab: "Power", title: "Only keep awake while on AC power"},
                {tag: "batteryLimitEnabled", tab: "Power", title: "Stop keeping awake below a battery level"},
                {tag: "enableOnAC", tab: "Power", title: "Turn Tarvik on when plugged in"},
                {tag: "pauseWhenHot", tab: "Power", title: "Pause when the Mac gets hot"},
            ];
        }

        function test_switchesWriteAtOnce(data) {
            show(data.tab);
            const row = find(data.tag);
            compare(row.title, data.title);
            scrollTo(row);
            const before = tarvik.setting(data.tag);
            mouseClick(row, row.width - 20, row.height / 2);
            tryVerify(() => tarvik.setting(data.tag) === !before);
            compare(row.isOn, !before);
            // The whole row is the switch's.
            mouseClick(row, 30, row.height / 2);
            tryVerify(() => tarvik.setting(data.tag) === before);
        }

        function test_launchingAtLoginIsAskedFor() {
            const row = find("launchAtLogin");
            compare(row.title, "Launch Tarvik at login");
            mouseClick(row, row.width - 20, row.height / 2);
            tryVerify(() => tarvik.asked().includes("set launchAtLogin true"));
        }

        function test_aChangeFromElsewhereIsShown() {
            const toggle = findChild(find("keepDisplayAwake"), "toggle");
            compare(toggle.checked, false);
            tarvik.set("keepDisplayAwake", true);
            compare(toggle.checked, true);
        }

        function test_theNumberOfAgentsIsTold() {
            show("Triggers");
            compare(find("watchAgents").caption, "Keep the Mac awake while any of 29 known coding agents is running.");
        }

        function test_aHookIsInstalledAndRemoved() {
            show("Triggers");
            scrollTo(find("codex"));
            click("codex");
            tryVerify(() => tarvik.installedHooks().join() === "claude,codex");
            click("claude");
            tryVerify(() => tarvik.installedHooks().join() === "codex");
            tryCompare(find("codex"), "caption", "~/.codex/hooks.json\nNo event yet. Restart Codex and approve the hooks when it asks: it skips them until you do.");
            tryCompare(find("claude"), "caption", "~/.claude/settings.json");
        }

        function test_anInstalledHookTellsWhenItWasLastHeardOf() {
            show("Triggers");
            const row = find("claude");
            compare(row.caption, "~/.claude/settings.json\nNo event yet. Claude Code sends the first one with your next prompt.");
            tarvik.setClock(new Date());
            tarvik.sendHookEvent("claude");
            tarvik.sendHookEvent("gemini");
            compare(row.caption, "~/.claude/settings.json\nLast event just now");
            compare(find("gemini").caption, "~/.gemini/settings.json");
            tarvik.setClock(new Date(Date.now() - 150 * 1000));
            tarvik.sendHookEvent("claude");
            compare(row.caption, "~/.claude/settings.json\nLast event 2 min ago");
            // It ticks.
            find("hooks").now = new Date(Date.now() + 60 * 1000);
            compare(row.caption, "~/.claude/settings.json\nLast event 3 min ago");
            verify(!row.isCaptionAlarming);
        }

        function test_theDocumentationOfHooksOpens() {
            show("Triggers");
            const button = find("geminiDocs");
            compare(button.text, "How hooks of Gemini CLI work");
            scrollTo(button);
            mouseMove(button, 5, 5);
            tryCompare(find("docsTip"), "visible", true);
            compare(find("docsTip").text, button.text);
            mouseClick(button);
            compare(desktop.opened, ["https://geminicli.com/docs/hooks/"]);
            compare(tarvik.installedHooks(), ["claude"]);
        }

        function test_whatHooksAreForIsSeenAtOnce() {
            show("Triggers");
            waitForRendering(view);
            const text = texts(view).find(text => text.startsWith("Hooks tell Tarvik"));
            compare(text, "Hooks tell Tarvik when an agent starts and finishes a turn, so an agent sitting idle at its prompt lets the Mac sleep. Turning one on adds a Tarvik entry to that agent's config file and nothing else — and Tarvik stops watching for that agent's process, since its turns are the better signal. Turning it off removes the entry and restores process detection.");
            const label = labelled(view, text);
            verify(label.mapToItem(view, 0, label.height).y < view.height);
            compare(label.color, theme.secondaryText);
        }

        function test_aFileThatCannotBeWrittenIsToldUntilItCan() {
            show("Triggers");
            const row = find("codex");
            scrollTo(row);
            tarvik.breakHooks("codex");
            click("codex");
            tryCompare(row, "caption", "Couldn't write ~/.codex/hooks.json. If you've edited it by hand, check it's valid JSON — Tarvik won't overwrite a file it can't read.");
            verify(!findChild(row, "toggle").checked);
            verify(row.isCaptionAlarming);
            verify(!find("claude").isCaptionAlarming);

            tarvik.mendHooks("codex");
            click("codex");
            tryCompare(row, "isCaptionAlarming", false);
            compare(tarvik.installedHooks(), ["claude", "codex"]);
            tryVerify(() => findChild(row, "toggle").checked);
        }

        function test_anEntryThatIsGoneFromTheFileShowsAsOff() {
            show("Triggers");
            tarvik.hooks.uninstall("claude");
            tryVerify(() => !findChild(find("claude"), "toggle").checked);
        }

        function test_theFilesAreAskedAgainWheneverTheListIsShown() {
            show("Triggers");
            verify(findChild(find("claude"), "toggle").checked);
            show("General");
            tarvik.editHooks(["codex"]);
            show("Triggers");
            tryVerify(() => !findChild(find("claude"), "toggle").checked);
            verify(findChild(find("codex"), "toggle").checked);
        }

        function test_theFilesAreAskedAgainWhileTheListIsShown() {
            show("Triggers");
            tarvik.editHooks([]);
            const ticking = find("hookTicking");
            verify(ticking.running);
            // As it does by itself after its interval.
            ticking.triggered();
            tryVerify(() => !findChild(find("claude"), "toggle").checked);
            show("General");
            verify(!ticking.running);
        }

        function test_appsAreListedAndRemoved() {
            show("Triggers");
            verify(texts(view).includes("No apps added. Keep awake while a chosen app is running."));
            tarvik.allow(["Blender", "HandBrake"]);
            verify(!texts(view).includes("No apps added. Keep awake while a chosen app is running."));
            const shown = texts(view);
            verify(shown.indexOf("Blender") >= 0 && shown.indexOf("Blender") < shown.indexOf("HandBrake"));
            const remove = find("remove");
            scrollTo(remove);
            mouseClick(remove);
            tryVerify(() => tarvik.allowed().join() === "HandBrake");
        }

        function test_anAppIsAdded_data() {
            return [
                {tag: "by click"},
                {tag: "by Return"},
            ];
        }

        function test_anAppIsAdded(data) {
            show("Triggers");
            const add = find("addApp");
            scrollTo(add);
            mouseClick(add);
            const chooser = find("appChooser");
            tryCompare(chooser, "opened", true);
            const list = findChild(chooser.contentItem, "appList");
            tryCompare(list, "count", 3);
            keyClick("h");
            keyClick("a");
            keyClick("n");
            tryCompare(list, "count", 1);
            if (data.tag === "by click")
                mouseClick(tryItem(list, 0));
            else
                keyClick(Qt.Key_Return);
            tryVerify(() => tarvik.settings.allowlist.length === 1);
            compare(tarvik.settings.allowlist, [{bundleID: "fr.handbrake", name: "HandBrake"}]);
            compare(tarvik.allowed(), ["HandBrake"]);
            tryCompare(chooser, "visible", false);
        }

        function openChooser() {
            show("Triggers");
            scrollTo(find("addApp"));
            mouseClick(find("addApp"));
            const chooser = find("appChooser");
            tryCompare(chooser, "opened", true);
            return chooser;
        }

        function test_anAppThatWasAddedBeforeHasATickAndIsNotAddedAgain() {
            tarvik.settings.addToAllowlist("fr.handbrake", "HandBrake");
            tryVerify(() => tarvik.settings.allowlist.length === 1);
            const chooser = openChooser();
            const list = findChild(chooser.contentItem, "appList");
            tryCompare(list, "count", 3);
            const row = tryItem(list, 2);
            compare(row.text, "HandBrake");
            verify(row.isAdded);
            compare(row.Accessible.description, "Already added");
            mouseClick(row);
            keyClick("h");
            keyClick("a");
            tryCompare(list, "count", 1);
            keyClick(Qt.Key_Return);
            list.itemAtIndex(0).Accessible.pressAction();
            verify(chooser.opened);
            compare(tarvik.allowed(), ["HandBrake"]);
            compare(tryItem(list, 0).isAdded, true);
            keyClick(Qt.Key_Escape);
            tryCompare(chooser, "visible", false);
        }

        function test_appsThatAreOpenComeFirstAndSaySo() {
            tarvik.run([], ["org.gimp"]);
            const chooser = openChooser();
            const list = findChild(chooser.contentItem, "appList");
            tryCompare(list, "count", 3);
            compare([0, 1, 2].map(index => tryItem(list, index).text), ["GIMP", "Blender", "HandBrake"]);
            compare(list.itemAtIndex(0).caption, "Open now");
            compare(list.itemAtIndex(0).Accessible.description, "Open now");
            compare(list.itemAtIndex(1).caption, "");
            keyClick(Qt.Key_Escape);
            tryCompare(chooser, "visible", false);
        }

        function test_appsOfOneNameAreToldApart() {
            tarvik.installApplications({"org.one": "Editor", "org.two": "Editor", "org.three": "Viewer"});
            const chooser = openChooser();
            const list = findChild(chooser.contentItem, "appList");
            tryCompare(list, "count", 3);
            compare([0, 1, 2].map(index => tryItem(list, index).caption), ["org.one", "org.two", ""]);
            mouseClick(list.itemAtIndex(1));
            tryVerify(() => tarvik.settings.allowlist.length === 1);
            compare(tarvik.settings.allowlist, [{bundleID: "org.two", name: "Editor"}]);
        }

        function test_anyOtherAppIsAddedByItsDesktopFile() {
            desktop.chooseFile("/srv/notes.txt");
            const chooser = openChooser();
            const other = findChild(chooser.contentItem, "appBrowse");
            tryCompare(other, "visible", true);
            compare(other.text, "Other…");
            mouseClick(other);
            const problem = findChild(chooser.contentItem, "appProblem");
            tryCompare(problem, "text", "notes.txt is not the desktop file of an application that can be started.");
            verify(problem.visible && chooser.opened);
            compare(tarvik.allowed(), []);
            desktop.chooseFile("/srv/org.tool.desktop");
            mouseClick(other);
            tryCompare(chooser, "visible", false);
            tryVerify(() => tarvik.settings.allowlist.length === 1);
            compare(tarvik.settings.allowlist, [{bundleID: "org.tool", name: "ORG.TOOL"}]);
        }

        function test_withoutFilesToChooseThereIsNoWayToOtherApps() {
            desktop.offerFiles(false);
            const chooser = openChooser();
            tryVerify(() => !tarvik.applications.canBrowse);
            verify(!findChild(chooser.contentItem, "appBrowse").visible);
            keyClick(Qt.Key_Escape);
            tryCompare(chooser, "visible", false);
        }

        function test_choosingAnAppCanBeCancelled() {
            show("Triggers");
            scrollTo(find("addApp"));
            mouseClick(find("addApp"));
            const chooser = find("appChooser");
            tryCompare(chooser, "opened", true);
            keyClick("x");
            tryCompare(findChild(chooser.contentItem, "appList"), "count", 0);
            keyClick(Qt.Key_Return);
            verify(chooser.opened);
            keyClick(Qt.Key_Escape);
            tryCompare(chooser, "visible", false);
            compare(tarvik.allowed(), []);
        }

        function test_theBatteryLevelIsThereOnlyWithItsLimit() {
            show("Power");
            verify(!find("batteryThreshold").visible);
            tarvik.set("batteryLimitEnabled", true);
            verify(find("batteryThreshold").visible);
        }

        function test_theBatteryLevelStaysFrom5To95InStepsOf5() {
            tarvik.set("batteryLimitEnabled", true);
            show("Power");
            const slider = find("batteryThreshold");
            waitForRendering(view);
            mousePress(slider, slider.width / 2, slider.height / 2);
            mouseMove(slider, slider.width / 2 + 31, slider.height / 2);
            compare(tarvik.settings.batteryThreshold % 5, 0);
            mouseMove(slider, -100, slider.height / 2);
            tryVerify(() => tarvik.setting("batteryThreshold") === 5);
            compare(find("batteryThresholdText").text, "5%");
            mouseMove(slider, slider.width + 100, slider.height / 2);
            mouseRelease(slider, slider.width + 100, slider.height / 2);
            tryVerify(() => tarvik.setting("batteryThreshold") === 95);
            keyClick(Qt.Key_Right);
            compare(tarvik.settings.batteryThreshold, 95);
            keyClick(Qt.Key_Left);
            tryVerify(() => tarvik.setting("batteryThreshold") === 90);
        }

        function test_theBatteryLevelIsSetByKeysAndWheel() {
            tarvik.set("batteryLimitEnabled", true);
            tarvik.set("batteryThreshold", 50);
            show("Power");
            const slider = find("batteryThreshold");
            waitForRendering(view);
            slider.forceActiveFocus(Qt.TabFocusReason);
            const turn = delta => mouseWheel(slider, slider.width / 2, slider.height / 2, 0, delta);
            for (const [act, level] of [
                [() => keyClick(Qt.Key_End), 95], [() => keyClick(Qt.Key_PageDown), 75], [() => keyClick(Qt.Key_Home), 5], [() => keyClick(Qt.Key_PageUp), 25],
                [() => turn(120), 30], [() => turn(-240), 20], [() => turn(60), 20], [() => turn(60), 25], [() => keyClick(Qt.Key_Left), 20]
            ]) {
                act();
                tryVerify(() => tarvik.setting("batteryThreshold") === level, 5000, `${tarvik.setting("batteryThreshold")} is not ${level}`);
                compare(slider.value, level);
            }
            // Neither has scrolled the page away.
            compare(view.currentPage.contentY, 0);
            tarvik.set("batteryThreshold", 65);
            compare(slider.value, 65);
        }

        function test_theBatteryLevelStandsStill() {
            tarvik.set("batteryLimitEnabled", true);
            show("Power");
            const text = find("batteryThresholdText");
            tarvik.set("batteryThreshold", 10);
            compare(text.text, "10%");
            const width = text.width;
            tarvik.set("batteryThreshold", 85);
            compare(text.text, "85%");
            compare(text.width, width);
            compare(text.parent.width, 44);
        }

        function test_theBatteryIsTold_data() {
            const none = "No internal battery detected — these conditions have no effect.";
            return [
                {tag: "on battery", percent: 80, isOnAC: false, text: "Currently 80% • on battery"},
                {tag: "on AC power", percent: 7, isOnAC: true, text: "Currently 7% • on AC power"},
                {tag: "empty", percent: 0, isOnAC: false, text: "Currently 0% • on battery"},
                {tag: "no battery", percent: undefined, isOnAC: true, text: none},
            ];
        }

        function test_theBatteryIsTold(data) {
            show("Power");
            tarvik.setPower(data.isOnAC, data.percent);
            compare(find("battery").footer, data.text);
            verify(find("requireAC").enabled);
        }

        function test_theTemperatureIsTold() {
            show("Power");
            tarvik.setThermal(3);
            compare(find("heat").footer, "Temperature is currently very hot. Tarvik pauses while macOS reports thermal throttling, and resumes once it cools down.");
        }

        function test_theJournalIsListedCopiedAndCleared() {
            show("Journal");
            verify(find("noEntries").visible);
            compare(find("noEntries").text, "Nothing yet. Tarvik records every time it starts, stops, or pauses.");
            verify(!find("copy").enabled);
            tarvik.setClock(new Date());
            tarvik.record("paused", "Paused — on battery");
            tarvik.setClock(new Date(2025, 0, 31, 17, 4));
            tarvik.record("on", "Awake · 1 agent");
            compare(find("entries").count, 2);
            tryVerify(() => !find("noEntries").visible);
            tryVerify(() => find("entries").itemAtIndex(0) && find("entries").itemAtIndex(1));
            const rows = [0, 1].map(index => find("entries").itemAtIndex(index));
            compare(rows.map(row => row.reason), ["Awake · 1 agent", "Paused — on battery"]);
            compare(rows.map(row => row.timeText), rows.map(row => Texts.time(row.at)));
            const copy = find("copy");
            compare(copy.text, "Copy");
            compare(copy.systemImage, "doc.on.doc");
            const width = copy.width;
            verify(width >= copy.implicitWidth);
            mouseClick(copy);
            tryCompare(view, "copied", tarvik.journalText());
            compare(copy.text, "Copied");
            compare(copy.systemImage, "checkmark");
            compare(copy.width, width);
            verify(width >= copy.implicitWidth);
            tryCompare(copy, "text", "Copy");
            mouseClick(find("clear"));
            tryCompare(find("entries"), "count", 0);
        }

        function test_updatesAreLookedForOnlyWhenPossible() {
            show("Updates");
            verify(!find("check").enabled);
            tarvik.offerUpdates();
            verify(find("check").enabled);
            mouseClick(find("check"));
            tryVerify(() => tarvik.updateChecks() === 1);
            // One that a check keeps from being pressed, a screen reader cannot press either.
            tryVerify(() => !find("check").enabled);
            find("check").Accessible.pressAction();
            tarvik.finishUpdateCheck();
            compare(tarvik.updateChecks(), 1);
            for (const name of ["automaticallyChecks", "automaticallyDownloads"]) {
                const row = find(name);
                compare(row.isOn, false);
                click(name);
                compare(row.isOn, true);
            }
        }

        function test_whereThereAreNoUpdatesItIsSaidHowThisCopyIsUpdated_data() {
            return [
                {tag: "system", text: "This copy is updated together with the other packages of this computer."},
                {tag: "source", text: "This copy was built from source. To update it, build a newer version."},
                {tag: "manual", text: "This copy does not come from a package. To update it, install a newer version in its place."},
            ];
        }

        function test_whereThereAreNoUpdatesItIsSaidHowThisCopyIsUpdated(data) {
            show("Updates");
            const switches = ["automaticallyChecks", "automaticallyDownloads"].map(find);
            verify(switches.every(row => row.visible));
            compare(find("thisCopy").footer, "");
            tarvik.setUpdateChannel(data.tag);
            verify(switches.every(row => !row.visible));
            compare(find("thisCopy").footer, data.text);
            verify(!find("check").enabled);
            verify(texts(view).includes(data.text));
            tarvik.setUpdateChannel("available");
            verify(switches.every(row => row.visible));
            compare(find("thisCopy").footer, "");
            verify(find("check").enabled);
        }

        function test_anUpgradeThatWaitsIsToldOf() {
            show("Updates");
            tarvik.setUpdateChannel("system");
            tarvik.installUpgrade();
            const text = "An update is installed. Tarvik restarts when the work has ended and its windows are closed.";
            compare(find("thisCopy").footer, text);
            verify(texts(view).includes(text));
        }

        function test_theLastCheckAges() {
            show("Updates");
            tarvik.offerUpdates();
            tarvik.setClock(new Date());
            tarvik.updater.checkForUpdates();
            tryVerify(() => tarvik.updateChecks() === 1);
            tarvik.finishUpdateCheck();
            const version = find("version");
            verify(/^Last checked \d seconds? ago$/.test(version.caption), version.caption);
            const first = version.caption;
            tryVerify(() => version.caption !== first);
        }

        function test_theLastCheckIsTold() {
            show("Updates");
            compare(find("version").caption, "Not checked yet.");
            tarvik.offerUpdates();
            tarvik.setClock(new Date(Date.now() - 2.5 * 3600 * 1000));
            tarvik.updater.checkForUpdates();
            tryVerify(() => tarvik.updateChecks() === 1);
            tarvik.finishUpdateCheck();
            compare(find("version").caption, "Last checked 2 hours ago");
        }
    }
}
