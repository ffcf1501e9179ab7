// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Design
import Tarvik.Mirror
import Tarvik.Settings
import Tarvik.Test

/// The history on days of our choice.
Item {
    height: 360
    width: 440

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
    JournalList {
        id: list

        anchors.fill: parent
        model: tarvik.journal.entries
        now: new Date(2026, 2, 1, 23, 59, 50)
        theme: theme
    }
    TestCase {
        name: "Journal"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
            tarvik.restart();
            list.now = new Date(2026, 2, 1, 23, 59, 50);
            record(new Date(2026, 1, 26, 8, 30), "long ago");
            record(new Date(2026, 1, 28, 0, 0), "in the morning");
            record(new Date(2026, 1, 28, 23, 59), "in the evening");
            record(new Date(2026, 2, 1, 23, 59), "just now");
            waitForRendering(list);
        }

        function record(at, reason) {
            tarvik.setClock(at);
            tarvik.record("on", reason);
        }

        /// The headings and rows below an item, from top to bottom, as a screen reader has them.
        function parts(item) {
            if (item.Accessible.name)
                return [item];
            const below = Array.from(item.children).filter(child => child.visible);
            return [].concat(...below.sort((one, other) => one.y - other.y).map(parts));
        }

        function shown() {
            return parts(list.contentItem).map(item => item.Accessible.name);
        }

        function test_entriesStandBelowTheirDays() {
            compare(list.count, 4);
            const time = (hours, minutes) => Texts.time(new Date(2026, 0, 1, hours, minutes));
            const longAgo = Texts.day("2026-02-26", list.now);
            verify(longAgo.includes("26") && longAgo.includes("2026"), longAgo);
            compare(shown(), [
                "Today", `just now, Today, ${time(23, 59)}`,
                "Yesterday", `in the evening, Yesterday, ${time(23, 59)}`, `in the morning, Yesterday, ${time(0, 0)}`,
                longAgo, `long ago, ${longAgo}, ${time(8, 30)}`]);
            const [heading, row] = parts(list.itemAtIndex(0));
            compare([heading.Accessible.role, row.Accessible.role], [Accessible.Heading, Accessible.ListItem]);
            compare(list.itemAtIndex(0).timeText, time(23, 59));
        }

        function test_theDaysTurnAtMidnight() {
            list.now = new Date(2026, 2, 2, 0, 0);
            compare(shown().filter(text => !text.includes(",")).concat(shown().slice(1, 2)),
                ["Yesterday", `just now, Yesterday, ${Texts.time(new Date(2026, 2, 1, 23, 59))}`]);
            record(new Date(2026, 2, 2, 0, 0), "after midnight");
            tryVerify(() => shown()[0] === "Today" && shown()[2] === "Yesterday");
        }

        function test_anEntryOfTheSameDayComesBelowItsHeading() {
            record(new Date(2026, 2, 1, 23, 59, 30), "newest");
            tryVerify(() => shown()[1].startsWith("newest"));
            compare(shown().filter(text => text === "Today").length, 1);
            verify(list.itemAtIndex(0).isFirstOfDay && !list.itemAtIndex(1).isFirstOfDay && list.itemAtIndex(2).isFirstOfDay);
        }

        function test_theKeyboardComesToTheFirstRowAndTheHeadingStaysSeen() {
            tarvik.record("off", "one of many", 50);
            list.forceActiveFocus();
            compare(list.currentIndex, 0);
            list.moveBy(Qt.Key_End);
            tryVerify(() => list.atYEnd);
            list.moveBy(Qt.Key_Home);
            tryVerify(() => list.atYBeginning);
        }

        function test_headingsStayRightHoweverFarOneScrolls() {
            tarvik.journal.clear();
            tryVerify(() => list.count === 0);
            for (let day = 1; day <= 28; ++day) {
                record(new Date(2026, 3, day, 12, 0), "in the morning");
                record(new Date(2026, 3, day, 18, 0), "in the evening");
            }
            for (const end of [Qt.Key_End, Qt.Key_Home, Qt.Key_PageDown, Qt.Key_PageDown, Qt.Key_PageUp]) {
                list.moveBy(end);
                waitForRendering(list);
                for (let index = 0; index < list.count; ++index) {
                    const entry = list.itemAtIndex(index);
                    if (!entry)
                        continue;
                    const names = parts(entry).map(part => part.Accessible.name);
                    const day = Texts.day(entry.day, list.now);
                    compare(names.length, entry.isFirstOfDay ? 2 : 1);
                    compare(entry.isFirstOfDay, entry.reason !== "in the morning");
                    verify(names.every(name => name.includes(day)), names.join());
                }
            }
        }

        function test_onlyTheRowsThatAreSeenExist() {
            tarvik.record("off", "one of many", 200);
            compare(list.count, 200);
            waitForRendering(list);
            verify(Array.from(list.contentItem.children).length < 30);
        }
    }
}
