// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tarvik.Agents
import Tarvik.Design
import Tarvik.Test
import ".."

/// The list of everything that is detected, and the request for what is not.
Item {
    id: root

    height: 440
    width: 480

    TestDesktop {
        id: desktop
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
    PushButton {
        id: opener

        text: "Opener"
        theme: theme

        onClicked: sheet.open()
    }
    AgentListSheet {
        id: sheet

        parent: root
        request: webService.request
        theme: theme
    }
    TestCase {
        id: test

        name: "AgentListSheet"
        when: windowShown

        readonly property string nothingSaid: "Couldn't send that — try again in a moment."
        readonly property string tooMany: "You've sent a few already — try again tomorrow."
        readonly property string cannotSend: "This copy of Tarvik can't send requests."

        function init() {
            failOnWarning(/.?/);
            desktop.isAnimated = false;
            webService.restart();
            sheet.request = webService.request;
            opener.forceActiveFocus(Qt.TabFocusReason);
            press(Qt.Key_Return);
            tryCompare(sheet, "opened", true);
            draw();
        }

        function cleanup() {
            sheet.close();
            tryCompare(sheet, "visible", false);
            desktop.textScale = 1;
            root.height = 440;
            root.width = 480;
            sheet.requesting = false;
            sheet.requestName = "";
            sheet.requestNote = "";
        }

        function draw() {
            verify(grabImage(sheet.contentItem));
        }

        function find(name) {
            const item = findChild(sheet.contentItem, name);
            verify(item, name);
            return item;
        }

        function press(key, modifiers) {
            keyClick(key, modifiers ?? Qt.NoModifier);
        }

        function type(text) {
            for (const letter of text)
                keyClick(letter);
        }

        function shown() {
            return shownTexts.below(sheet.contentItem).map(text => text.text);
        }

        function found() {
            const list = find("agentList");
            return Array.from({length: list.count}, (_, index) => list.model.data(list.model.index(index, 0), Qt.UserRole));
        }

        function focused() {
            return root.Window.activeFocusItem.objectName;
        }

        function openForm() {
            mouseClick(find("requestIt"));
            verify(sheet.requesting);
            draw();
        }

        function fail(status, error) {
            webService.expect(`^agent request failed: ${status}$`);
            webService.answer(status, JSON.stringify({error}));
        }

        function test_everythingIsShownFromTopToBottom() {
            const texts = shown();
            compare(texts.slice(0, 2), ["Agents Tarvik detects", "Done"]);
            compare(texts.slice(-2), ["Missing one?", "Request it…"]);
            verify(texts.indexOf("Agents") > texts.indexOf("Search"));
            verify(texts.indexOf("Claude Code") > 0 && texts.indexOf("claude") > 0);
            compare(find("agentSearch").placeholderText, "Search");
            compare(find("agentSearch").Accessible.name, "Search");
            compare(find("done").isProminent, true);
            compare(find("agentList").count, 37);
            compare(found()[0], "Claude Code");
            compare(found()[36], "PearAI");
            find("agentList").positionViewAtEnd();
            draw();
            verify(shown().includes("AI editors (while open)"));
        }

        function test_onlyWhatIsSeenIsMade() {
            const list = find("agentList");
            verify(list.itemAtIndex(0));
            compare(list.itemAtIndex(36), null);
        }

        function test_theSearchNarrowsBothSections() {
            compare(focused(), "agentSearch");
            type("pdx");
            compare(found(), ["Plandex"]);
            draw();
            verify(shown().includes("plandex, pdx") && !shown().includes("AI editors (while open)"));
            find("agentSearch").clear();
            type("ANTI");
            compare(found(), ["Antigravity CLI", "Antigravity"]);
            draw();
            verify(shown().includes("Agents") && shown().includes("AI editors (while open)"));
            find("agentSearch").clear();
            type("   ");
            compare(found().length, 37);
            find("agentSearch").clear();
            type("zzz");
            draw();
            compare(found(), []);
            verify(shown().includes("No such agent or editor."));
        }

        function test_itIsLeft_data() {
            return [
                {tag: "by its button", leave: () => mouseClick(find("done"))},
                {tag: "by Return", leave: () => press(Qt.Key_Return)},
                {tag: "by Enter", leave: () => press(Qt.Key_Enter)},
                {tag: "by Escape", leave: () => press(Qt.Key_Escape)},
                {tag: "by a screen reader", leave: () => find("done").Accessible.pressAction()},
                {tag: "by Return in the list", leave: () => { press(Qt.Key_Tab); press(Qt.Key_Return); }},
                {tag: "by Escape in the form", leave: () => { openForm(); press(Qt.Key_Escape); }},
            ];
        }

        function test_itIsLeft(data) {
            data.leave();
            tryCompare(sheet, "visible", false);
            verify(opener.activeFocus && opener.visualFocus);
        }

        function test_itOpensWithoutTheLastSearch() {
            type("pdx");
            press(Qt.Key_Return);
            tryCompare(sheet, "visible", false);
            sheet.open();
            tryCompare(sheet, "opened", true);
            compare(sheet.search, "");
            compare(found().length, 37);
            compare(focused(), "agentSearch");
        }

        function test_tabGoesRound() {
            const round = ["agentSearch", "agentList", "requestIt", "done", "agentSearch"];
            const name = () => focused() || "agentList";
            for (const control of round) {
                compare(name(), control);
                press(Qt.Key_Tab);
            }
            press(Qt.Key_Backtab);
            for (const control of round.reverse()) {
                compare(name(), control);
                press(Qt.Key_Backtab);
            }
        }

        function test_tabGoesRoundTheForm() {
            openForm();
            type("a");
            for (const control of ["requestName", "requestNote", "cancelRequest", "sendRequest", "done", "agentSearch"]) {
                compare(focused(), control);
                press(Qt.Key_Tab);
            }
        }

        function test_theListIsReadByKeys() {
            const list = find("agentList");
            press(Qt.Key_End);
            verify(list.atYEnd);
            compare(focused(), "agentSearch");
            press(Qt.Key_Home);
            verify(list.atYBeginning);
            press(Qt.Key_Down);
            compare(list.currentIndex, 0);
            verify(list.currentItem.isCurrent && list.currentItem.activeFocus);
            press(Qt.Key_Down);
            compare(list.currentIndex, 1);
            press(Qt.Key_PageDown);
            verify(list.currentIndex > 5);
            press(Qt.Key_End);
            compare(list.currentIndex, 36);
            draw();
            compare(list.currentItem.label, "PearAI");
            compare(list.currentItem.Accessible.role, Accessible.ListItem);
            compare(list.currentItem.Accessible.name, "PearAI");
            press(Qt.Key_Home);
            compare(list.currentIndex, 0);
            compare(list.currentItem.Accessible.description, "claude");
        }

        function test_theFormOpensAndIsCancelled_data() {
            return [
                {tag: "by click", open: () => mouseClick(find("requestIt")), cancel: () => mouseClick(find("cancelRequest")), isFocusSeen: false},
                {tag: "by keys", open: () => { find("requestIt").forceActiveFocus(Qt.TabFocusReason); press(Qt.Key_Return); },
                    cancel: () => { press(Qt.Key_Tab); press(Qt.Key_Tab); press(Qt.Key_Space); }, isFocusSeen: true},
                {tag: "by a screen reader", open: () => find("requestIt").Accessible.pressAction(), cancel: () => find("cancelRequest").Accessible.pressAction(), isFocusSeen: false},
            ];
        }

        function test_theFormOpensAndIsCancelled(data) {
            data.open();
            draw();
            compare(sheet.requesting, true);
            compare(focused(), "requestName");
            compare(shown().slice(-4), ["Agent or app name", "The command you run it with", "Cancel", "Send"]);
            verify(!shown().includes("Missing one?"));
            compare(find("requestName").Accessible.name, "Agent or app name");
            type("a");
            data.cancel();
            compare(sheet.requesting, false);
            compare(focused(), "requestIt");
            compare(find("requestIt").visualFocus, data.isFocusSeen);
            openForm();
            compare(sheet.requestName, "");
            compare(webService.requests(), []);
        }

        function test_withoutANameNothingIsSent_data() {
            return [
                {tag: "nothing", name: ""},
                {tag: "blanks", name: " \t "},
            ];
        }

        function test_withoutANameNothingIsSent(data) {
            openForm();
            sheet.requestName = data.name;
            sheet.requestNote = "run-it";
            const send = find("sendRequest");
            compare(send.enabled, false);
            compare(send.Accessible.description, "Enter a name first.");
            send.Accessible.pressAction();
            mouseClick(send);
            press(Qt.Key_Return);
            compare(sheet.sending, false);
            verify(sheet.opened);
            sheet.requestName = " x";
            compare(send.enabled, true);
            compare(send.Accessible.description, "");
            compare(webService.requests(), []);
        }

        function test_aRequestIsSent_data() {
            return [
                {tag: "by click", status: 200, send: () => mouseClick(find("sendRequest"))},
                {tag: "by Return in the first field", status: 201, send: () => { find("requestName").forceActiveFocus(); press(Qt.Key_Return); }},
                {tag: "by Enter in the second field", status: 200, send: () => { find("requestNote").forceActiveFocus(); press(Qt.Key_Enter); }},
                {tag: "by a screen reader", status: 200, send: () => find("sendRequest").Accessible.pressAction()},
            ];
        }

        function test_aRequestIsSent(data) {
            openForm();
            type(" my agent ");
            press(Qt.Key_Tab);
            type("run-it");
            webService.answer(data.status, "{}");
            data.send();
            compare(sheet.sending, true);
            tryCompare(sheet, "sent", true);
            compare(webService.requests(), ['{"name":"my agent","note":"run-it"}']);
            draw();
            compare(shown().slice(-1), ["Thanks — we'll take a look."]);
            compare(find("sent").Accessible.role, Accessible.AlertMessage);
            verify(Qt.colorEqual(find("sent").color, theme.awake));
            verify(!shown().includes("Send") && !shown().includes("Missing one?"));
            compare(focused(), "done");
            press(Qt.Key_Return);
            tryCompare(sheet, "visible", false);
            sheet.open();
            tryCompare(sheet, "opened", true);
            draw();
            compare(shown().slice(-2), ["Missing one?", "Request it…"]);
        }

        function test_aFailureIsToldAndTheFormKeepsItsText_data() {
            return [
                {tag: "500", status: 500, text: "Somebody pulled the plug.", expected: "Somebody pulled the plug."},
                {tag: "500 without a word", status: 500, text: undefined, expected: nothingSaid},
                {tag: "429", status: 429, text: "Enough.", expected: tooMany},
                {tag: "markup", status: 400, text: "<b>No</b>", expected: "<b>No</b>"},
                {tag: "a long one", status: 500, text: "W".repeat(5000), expected: "W".repeat(299) + "…"},
            ];
        }

        function test_aFailureIsToldAndTheFormKeepsItsText(data) {
            openForm();
            type("agent");
            sheet.requestNote = "run-it";
            if (data.status === 429)
                webService.answer(429, "");
            else
                fail(data.status, data.text);
            press(Qt.Key_Return);
            compare(sheet.sending, true);
            tryCompare(sheet, "sending", false);
            compare(sheet.requestError, data.expected);
            draw();
            const error = find("requestError");
            compare(shown().slice(-1), [data.expected]);
            compare(shownTexts.flaw(error, sheet.contentItem), "");
            compare(error.textFormat, Text.PlainText);
            compare(error.font.pixelSize, theme.captionSize);
            compare(error.Accessible.role, Accessible.AlertMessage);
            compare([sheet.requesting, sheet.requestName, sheet.requestNote, sheet.sent], [true, "agent", "run-it", false]);
            compare(focused(), "requestName");

            webService.answer(200, "");
            press(Qt.Key_Return);
            compare(sheet.requestError, "");
            tryCompare(sheet, "sent", true);
            compare(webService.requests().length, 2);
        }

        function test_withoutAnAnswerItSaysSo() {
            openForm();
            type("agent");
            webService.expect("^agent request got no answer: ");
            press(Qt.Key_Return);
            tryVerify(() => webService.requests().length === 1);
            webService.hangUp();
            tryCompare(sheet, "requestError", "Couldn't reach the server — check your internet connection and try again.");
            compare(sheet.requestName, "agent");
        }

        function test_whileItIsOnItsWayNothingElseIsSent() {
            openForm();
            type("agent");
            find("sendRequest").forceActiveFocus(Qt.TabFocusReason);
            press(Qt.Key_Space);
            tryVerify(() => webService.requests().length === 1);
            draw();
            verify(shown().includes("Sending…"));
            compare(focused(), "cancelRequest");
            verify(find("cancelRequest").visualFocus);
            compare(find("sendRequest").enabled, false);
            find("sendRequest").Accessible.pressAction();
            find("requestName").forceActiveFocus();
            type("x");
            press(Qt.Key_Return);
            compare(sheet.requestName, "agent");
            compare(webService.requests().length, 1);
            verify(sheet.opened);
        }

        function test_theFocusGoesBackToTheButtonThatFailed() {
            openForm();
            type("agent");
            find("sendRequest").forceActiveFocus(Qt.TabFocusReason);
            fail(500, "No.");
            press(Qt.Key_Space);
            compare(focused(), "cancelRequest");
            tryCompare(sheet, "requestError", "No.");
            compare(focused(), "sendRequest");
            verify(find("sendRequest").visualFocus);
        }

        function test_aRequestOnItsWayIsCancelled() {
            openForm();
            type("agent");
            press(Qt.Key_Return);
            tryVerify(() => webService.requests().length === 1);
            mouseClick(find("cancelRequest"));
            compare(sheet.sending, false);
            compare(sheet.requesting, false);
            tryVerify(() => !webService.isWaitedFor);
        }

        function test_whatIsTypedStaysUntilItIsSent() {
            openForm();
            type("agent");
            press(Qt.Key_Escape);
            tryCompare(sheet, "visible", false);
            sheet.open();
            tryCompare(sheet, "opened", true);
            compare([sheet.requesting, sheet.requestName], [true, "agent"]);
            sheet.requestName = "";
            sheet.close();
            tryCompare(sheet, "visible", false);
            sheet.open();
            tryCompare(sheet, "opened", true);
            compare(sheet.requesting, false);
        }

        function test_aRequestGoesOnWhenTheSheetIsClosed() {
            openForm();
            type("agent");
            fail(500, "No.");
            press(Qt.Key_Return);
            mouseClick(find("done"));
            tryCompare(sheet, "visible", false);
            tryCompare(sheet, "sending", false);
            verify(opener.activeFocus);
            sheet.open();
            tryCompare(sheet, "opened", true);
            compare([sheet.requesting, sheet.requestName, sheet.requestError], [true, "agent", "No."]);
        }

        function test_withoutAnAddressTheFormSaysSo() {
            sheet.request = webService.requestToNobody;
            openForm();
            type("agent");
            draw();
            compare(shown().slice(-1), [cannotSend]);
            compare(find("cannotSend").Accessible.role, Accessible.AlertMessage);
            compare(find("sendRequest").enabled, false);
            compare(find("sendRequest").Accessible.description, cannotSend);
            press(Qt.Key_Return);
            compare(sheet.sending, false);
            verify(sheet.opened);
        }

        function verifyInside(item) {
            const top = item.mapToItem(sheet.contentItem, 0, 0).y;
            verify(top >= 0 && top + item.height <= sheet.contentItem.height + 0.5, `${item} at ${top}`);
        }

        function verifyNothingOverlaps() {
            const spans = ["agentSearch", "agentList", "requestArea"].map(name => {
                const item = find(name);
                const top = item.mapToItem(find("agentListBody").contentItem, 0, 0).y;
                return {name, top, bottom: top + item.height};
            });
            for (let index = 1; index < spans.length; ++index)
                verify(spans[index].top > spans[index - 1].bottom, JSON.stringify(spans));
            const list = find("agentList");
            verify(list.visible && list.height >= 3 * theme.scaled(28), list.height);
            verify(spans[2].bottom <= find("agentListBody").contentHeight);
        }

        function test_aLongErrorIsShownWithoutHidingWhatIsAbove_data() {
            return [
                {tag: "at the normal size", textScale: 1, width: 480, height: 440},
                {tag: "at 200 % on a low screen", textScale: 2, width: 960, height: 552},
            ];
        }

        function test_aLongErrorIsShownWithoutHidingWhatIsAbove(data) {
            desktop.textScale = data.textScale;
            root.width = data.width;
            root.height = data.height;
            openForm();
            type("agent");
            fail(500, "Somebody pulled the plug. ".repeat(20));
            press(Qt.Key_Return);
            tryVerify(() => sheet.requestError.length === 300);
            draw();
            verifyNothingOverlaps();
            verifyInside(find("requestError"));
            find("agentSearch").forceActiveFocus(Qt.TabFocusReason);
            draw();
            verifyInside(find("agentSearch"));
            find("sendRequest").forceActiveFocus(Qt.TabFocusReason);
            draw();
            verifyInside(find("sendRequest"));
        }

        function test_nothingIsClipped_data() {
            const rows = [];
            for (const [textScale, width, height] of [[1, 480, 440], [1.25, 600, 550], [2, 960, 880], [2, 960, 552]]) {
                for (const state of ["idle", "form", "sending", "failed", "sent", "nowhere"])
                    rows.push({tag: `${state} with text at ${textScale} in ${width} x ${height}`, textScale, width, height, state});
            }
            return rows;
        }

        function test_nothingIsClipped(data) {
            desktop.textScale = data.textScale;
            root.width = data.width;
            root.height = data.height;
            if (data.state === "nowhere")
                sheet.request = webService.requestToNobody;
            if (data.state !== "idle") {
                openForm();
                sheet.requestName = "agent";
            }
            if (data.state === "failed")
                fail(500, "The database is having a rest after a long day, and nobody knows when it will be back from it.");
            if (data.state === "sent")
                webService.answer(200, "");
            if (!["idle", "form", "nowhere"].includes(data.state))
                press(Qt.Key_Return);
            if (data.state === "failed") {
                tryVerify(() => sheet.requestError);
                draw();
                // What is to be read is shown where not everything fits.
                verifyInside(find("requestError"));
            }
            if (data.state === "sent")
                tryCompare(sheet, "sent", true);
            draw();
            const texts = shownTexts.below(sheet.contentItem);
            verify(texts.length > 4);
            for (const text of texts)
                compare(shownTexts.flaw(text, sheet.contentItem), "");
            verifyNothingOverlaps();
        }
    }
}
