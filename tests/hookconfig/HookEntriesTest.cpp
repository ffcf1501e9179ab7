// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hookconfig/HookEntries.h"

#include "hookconfig/JsonDocument.h"
#include "support/TestSupport.h"

#include <string>

using namespace Qt::StringLiterals;
using namespace Tarvik;

namespace {

using Object = JsonValue::Object;

constexpr auto toolPath = "/opt/tarvik/Contents/SharedSupport/tarvik";

const HookSpec& spec(const char* id)
{
    return *HookSpec::find(id);
}

/// JSON in which an apostrophe stands for a double quote and a bar for an escaped one.
std::string quoted(std::string text)
{
    for (std::size_t at = 0; (at = text.find_first_of("'|", at)) != std::string::npos;) {
        const std::string replacement = text[at] == '|' ? "\\\"" : "\"";
        text.replace(at, 1, replacement);
        at += replacement.size();
    }
    return text;
}

Object json(const std::string& text)
{
    const auto document = JsonDocument::parse(quoted(text));
    return document && document->object() != nullptr ? *document->object() : Object{{"unparsable", {}}};
}

QByteArray printed(const Object& document)
{
    return QByteArray::fromStdString(JsonDocument::print({document}, std::string::npos).value_or("too large"));
}

bool isOurs(const std::string& entry)
{
    return HookEntries::isOurs({json(entry)});
}

void install(const HookSpec& spec, Object& document)
{
    HookEntries::add(spec, *HookEntries::command(toolPath, spec), document);
}

Object installed(const HookSpec& spec, const std::string& text)
{
    Object document = json(text);
    install(spec, document);
    return document;
}

Object uninstalled(const HookSpec& spec, const std::string& text)
{
    Object document = json(text);
    HookEntries::remove(spec, document);
    return document;
}

/// What install adds for one event of a tagged, grouped spec.
std::string group(const std::string& id)
{
    return std::string("{'hooks':[{'type':'command','name':'tarvik','command':'|") + toolPath + "| hook --tool " + id
        + "'}]}";
}

const std::string foreignGroup = "{'matcher':'Bash','hooks':[{'type':'command','command':'say done','timeout':5}]}";

} // namespace

#define COMPARE_JSON(actual, expected) QCOMPARE(printed(actual), printed(json(expected)))

class HookEntriesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theCommandQuotesTheToolsPath()
    {
        QCOMPARE(HookEntries::command("/Applications/My Tarvik/tarvik", spec("claude")),
            "\"/Applications/My Tarvik/tarvik\" hook --tool claude");
    }

    void aPathThatAShellWouldInterpretHasNoCommand_data()
    {
        QTest::addColumn<QByteArray>("path");
        for (const char* path : {"/a\"b/tarvik", "/a\\b/tarvik", "/$HOME/tarvik", "/a`b`/tarvik"})
            QTest::newRow(path) << QByteArray(path);
    }
    void aPathThatAShellWouldInterpretHasNoCommand()
    {
        QFETCH(const QByteArray, path);
        QVERIFY(!HookEntries::command(path.toStdString(), spec("claude")));
    }

    void anEntryIsRecognisedByItsMarkerOrItsCommand_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<bool>("isOurs");
        const auto row = [](const char* name, const char* entry, bool isOurs) {
            QTest::newRow(name) << QString::fromUtf8(entry) << isOurs;
        };
        row("marker", "{'name':'tarvik'}", true);
        row("marker beside a foreign command", "{'name':'tarvik','command':'say done'}", true);
        row("marker in capitals", "{'name':'Tarvik'}", false);
        row("marker that is no string", "{'name':['tarvik']}", false);
        row("other name, our command", "{'name':'x','command':'tarvik hook'}", true);
        row("unquoted path", "{'command':'/usr/local/bin/tarvik acquire'}", true);
        row("bare name", "{'command':'tarvik hold 5m'}", true);
        row("relative path", "{'command':'./tarvik release'}", true);
        row("quoted path", "{'command':'|/opt/My Tarvik/tarvik| hook --tool claude'}", true);
        row("no blank behind the quote", "{'command':'|/opt/tarvik|hook'}", true);
        row("more blanks", "{'command':'tarvik    release-all   now'}", true);
        row("under bash", "{'bash':'/x/tarvik hook --tool copilot'}", true);
        row("under powershell", "{'powershell':'|C:/x/tarvik| hook'}", true);
        row("command is foreign, bash is ours", "{'command':'say','bash':'tarvik hook'}", true);
        row("command is no string, bash is ours", "{'command':7,'bash':'tarvik hook'}", true);
        row("other executable", "{'command':'/usr/bin/tarvik-other hook'}", false);
        row("executable in capitals", "{'command':'Tarvik hook'}", false);
        row("other sub-command", "{'command':'|/x/tarvik| status'}", false);
        row("sub-command in capitals", "{'command':'tarvik HOOK'}", false);
        row("longer sub-command", "{'command':'tarvik hooks'}", false);
        row("option before the sub-command", "{'command':'tarvik --verbose hook'}", false);
        row("no sub-command", "{'command':'tarvik'}", false);
        row("no sub-command but a blank", "{'command':'tarvik '}", false);
        row("blank within an unquoted path", "{'command':'/opt/My Tarvik/tarvik hook'}", false);
        row("leading blank", "{'command':' tarvik hook'}", false);
        row("unclosed quote", "{'command':'|/opt/tarvik hook'}", false);
        row("tool as an argument", "{'command':'echo tarvik hook'}", false);
        row("directory of that name", "{'command':'/opt/tarvik/run hook'}", false);
        row("empty command", "{'command':''}", false);
        row("only a quote", "{'command':'|'}", false);
        row("command under another key", "{'run':'tarvik hook'}", false);
        row("empty entry", "{}", false);
    }
    void anEntryIsRecognisedByItsMarkerOrItsCommand()
    {
        QFETCH(const QString, entry);
        QTEST(::isOurs(entry.toStdString()), "isOurs");
    }

    void whatIsNoObjectIsNotOurs()
    {
        QVERIFY(!HookEntries::isOurs({std::string("tarvik hook")}));
        QVERIFY(!HookEntries::isOurs({}));
        QVERIFY(!HookEntries::isOurs({JsonValue::Array{}}));
    }

    void addingToNothingGivesOneGroupPerEvent()
    {
        const std::string g = group("claude");
        COMPARE_JSON(installed(spec("claude"), "{}"),
            "{'hooks':{'UserPromptSubmit':[" + g + "],'PreToolUse':[" + g + "],'Stop':[" + g + "],'StopFailure':[" + g
                + "]}}");
    }

    void anUntaggedSpecGetsNoName()
    {
        const Object document = installed(spec("codex"), "{}");
        QVERIFY(!printed(document).contains("name"));
        Object stripped = document;
        HookEntries::remove(spec("codex"), stripped);
        COMPARE_JSON(stripped, "{}");
    }

    void aFlatListHoldsTheCommandTwiceAndAVersion()
    {
        const std::string command = std::string("|") + toolPath + "| hook --tool copilot";
        const std::string entry
            = "[{'type':'command','name':'tarvik','bash':'" + command + "','command':'" + command + "'}]";
        COMPARE_JSON(installed(spec("copilot"), "{}"),
            "{'version':1,'hooks':{'userPromptSubmitted':" + entry + ",'preToolUse':" + entry + ",'agentStop':" + entry
                + "}}");
    }

    void anExistingVersionStaysWhateverItIs()
    {
        for (const std::string version : {"2", "'one'", "null", "1.0"}) {
            const Object document = installed(spec("copilot"), "{'version':" + version + "}");
            QVERIFY(document.at("version") == json("{'version':" + version + "}").at("version"));
        }
    }

    void aGroupedFileGetsNoVersion() { QVERIFY(!installed(spec("gemini"), "{}").contains("version")); }

    void addingTwiceChangesNothing()
    {
        for (const HookSpec& each : HookSpec::all) {
            Object document = installed(each, "{'hooks':{'Stop':[" + foreignGroup + "]},'other':1}");
            const Object once = document;
            install(each, document);
            QVERIFY2(document == once, each.id.data());
        }
    }

    void aForeignGroupKeepsItsPlaceBeforeOurs()
    {
        const Object document = installed(spec("claude"), "{'hooks':{'Stop':[" + foreignGroup + "]}}");
        const JsonValue& stop = document.at("hooks").object()->at("Stop");
        QCOMPARE(stop.array()->size(), std::size_t{2});
        QVERIFY(stop.array()->front() == JsonValue{json(foreignGroup)});
        QVERIFY(stop.array()->back() == JsonValue{json(group("claude"))});
    }

    void addingMovesOurGroupToTheEndAndDropsOldCopies()
    {
        const std::string old = "{'matcher':'','hooks':[{'command':'/old/tarvik hook --tool qwen'}]}";
        const Object document
            = installed(spec("qwen"), "{'hooks':{'Stop':[" + old + "," + foreignGroup + "," + old + "]}}");
        COMPARE_JSON(Object({{"Stop", document.at("hooks").object()->at("Stop")}}),
            "{'Stop':[" + foreignGroup + "," + group("qwen") + "]}");
    }

    void aValueOfAnotherTypeInTheEventsPlaceCountsAsEmpty()
    {
        for (const std::string value : {"null", "true", "'text'", "3", "{'a':1}", "[]"}) {
            const Object document = installed(spec("qwen"), "{'hooks':{'Stop':" + value + "}}");
            COMPARE_JSON(
                Object({{"Stop", document.at("hooks").object()->at("Stop")}}), "{'Stop':[" + group("qwen") + "]}");
            COMPARE_JSON(uninstalled(spec("qwen"), "{'a':1,'hooks':{'Stop':" + value + "}}"), "{'a':1}");
        }
    }

    void hooksOfAnotherTypeCountAsEmptyWhenAddingAndStayWhenRemoving()
    {
        QVERIFY(installed(spec("qwen"), "{'hooks':[1]}").at("hooks").object() != nullptr);
        COMPARE_JSON(uninstalled(spec("qwen"), "{'hooks':[1]}"), "{'hooks':[1]}");
    }

    void elementsThatAreNoObjectsStay()
    {
        const std::string odd = "{'hooks':{'Stop':[1,'x',null,[],{'hooks':['y',2]},{'matcher':''},{'hooks':'z'}]}}";
        COMPARE_JSON(uninstalled(spec("qwen"), odd), odd);
        COMPARE_JSON(uninstalled(spec("copilot"), "{'hooks':{'agentStop':[1,'x',null]}}"),
            "{'hooks':{'agentStop':[1,'x',null]}}");
    }

    void removingTheOnlyEntryRemovesTheEventAndTheLastEventRemovesHooks()
    {
        COMPARE_JSON(
            uninstalled(spec("claude"),
                "{'model':'x','hooks':{'Stop':[" + group("claude") + "],'Notification':[" + foreignGroup + "]}}"),
            "{'model':'x','hooks':{'Notification':[" + foreignGroup + "]}}");
        COMPARE_JSON(
            uninstalled(spec("claude"), "{'model':'x','hooks':{'Stop':[" + group("claude") + "]}}"), "{'model':'x'}");
    }

    void aSharedGroupKeepsItsForeignEntry()
    {
        COMPARE_JSON(uninstalled(spec("gemini"),
                         "{'hooks':{'AfterAgent':[{'matcher':'*','hooks':[{'command':'a'},{'name':'tarvik'},"
                         "{'command':'b'}]}]}}"),
            "{'hooks':{'AfterAgent':[{'matcher':'*','hooks':[{'command':'a'},{'command':'b'}]}]}}");
    }

    void ourEntriesUnderEventsThatAreNotHookedStay()
    {
        const std::string file = "{'hooks':{'Notification':[" + group("claude") + "]}}";
        COMPARE_JSON(uninstalled(spec("claude"), file), file);
    }

    void anyEntryOfOursUnderAnEventThatIsHookedCounts()
    {
        const auto hasAny
            = [](const char* id, const std::string& file) { return HookEntries::hasAny(spec(id), json(file)); };
        for (const HookSpec& each : HookSpec::all)
            QVERIFY(HookEntries::hasAny(each, installed(each, "{}")));
        QVERIFY(hasAny("claude", "{'hooks':{'StopFailure':[{'hooks':[{'command':'/old/tarvik hook'}]}]}}"));
        QVERIFY(hasAny("droid", "{'Stop':[" + group("droid") + "]}"));
        QVERIFY(!hasAny("claude", "{'Stop':[" + group("claude") + "]}"));
        QVERIFY(!hasAny("claude", "{'hooks':{'Notification':[" + group("claude") + "]}}"));
        for (const char* const none : {"{}", "{'hooks':7}", "{'hooks':{'Stop':'tarvik'}}", "{'name':'tarvik'}"})
            QVERIFY(!hasAny("droid", none));
        QVERIFY(!hasAny("qwen", "{'hooks':{'Stop':[" + foreignGroup + "]}}"));
    }

    void anInstalledSpecHasAnEntryUnderEveryStartEvent_data()
    {
        QTest::addColumn<QString>("hooks");
        QTest::addColumn<bool>("isInstalled");
        const auto row = [](const char* name, const std::string& hooks, bool isInstalled) {
            QTest::newRow(name) << QString::fromStdString(hooks) << isInstalled;
        };
        const std::string g = "[" + group("claude") + "]";
        const std::string f = "[" + foreignGroup + "]";
        row("no entries", "{}", false);
        row("hooks of another type", "[]", false);
        row("only one start event", "{'PreToolUse':" + g + "}", false);
        row("only the end events", "{'Stop':" + g + ",'StopFailure':" + g + "}", false);
        row("both start events, no end event", "{'UserPromptSubmit':" + g + ",'PreToolUse':" + g + "}", true);
        row("one of another program's", "{'UserPromptSubmit':" + g + ",'PreToolUse':" + f + "}", false);
        row("one of another type", "{'UserPromptSubmit':" + g + ",'PreToolUse':{}}", false);
        row("a copy that lies elsewhere",
            "{'UserPromptSubmit':[{'hooks':[{'command':'/elsewhere/tarvik hook'}]}],'PreToolUse':" + g + "}",
            true);
        row("in a group with a foreign entry",
            "{'UserPromptSubmit':[{'hooks':[{'command':'a'},{'name':'tarvik'}]}],'PreToolUse':" + g + "}",
            true);
        // Such groups are what an agent's own editor leaves behind.
        row("groups without entries", "{'UserPromptSubmit':[{'hooks':[]}],'PreToolUse':[{'hooks':[]}]}", false);
        row("an entry outside of any group", "{'UserPromptSubmit':[{'name':'tarvik'}],'PreToolUse':" + g + "}", false);
    }
    void anInstalledSpecHasAnEntryUnderEveryStartEvent()
    {
        QFETCH(const QString, hooks);
        const Object document = json("{'hooks':" + hooks.toStdString() + "}");
        QTEST(HookEntries::isInstalled(spec("claude"), document), "isInstalled");
    }

    void commandsAreThoseOfTheFirstStartEvent()
    {
        const Object grouped = json("{'hooks':{'BeforeAgent':[{'hooks':[{'command':'a'},{'bash':'b'},{'command':1}]},"
                                    "{'matcher':''},{'hooks':[{'command':'c'}]}],'BeforeTool':[{'hooks':"
                                    "[{'command':'d'}]}]}}");
        QVERIFY(HookEntries::firstEventCommands(spec("gemini"), grouped) == std::vector<std::string>({"a", "c"}));
        const Object flat = json("{'hooks':{'userPromptSubmitted':[{'bash':'a','command':'b'},{'command':'c'},"
                                 "{'powershell':'d'},{'bash':1,'command':'e'}]}}");
        QVERIFY(HookEntries::firstEventCommands(spec("copilot"), flat) == std::vector<std::string>({"a", "c", "e"}));
    }

    void aFreshInstallIsNotOutdated()
    {
        for (const HookSpec& each : HookSpec::all)
            QVERIFY2(!HookEntries::isOutdated(each, installed(each, "{'a':1}"), toolPath), each.id.data());
    }

    void whatWasNeverInstalledIsNotOutdated()
    {
        QVERIFY(!HookEntries::isOutdated(spec("claude"), json("{}"), toolPath));
        const Object foreign = json("{'hooks':{'UserPromptSubmit':[" + foreignGroup + "]}}");
        QVERIFY(!HookEntries::isOutdated(spec("claude"), foreign, toolPath));
        const Object emptyGroup = json("{'hooks':{'UserPromptSubmit':[{'hooks':[]}]}}");
        QVERIFY(!HookEntries::isOutdated(spec("claude"), emptyGroup, toolPath));
    }

    void anotherToolPathIsOutdated()
    {
        QVERIFY(HookEntries::isOutdated(spec("claude"), installed(spec("claude"), "{}"), "/new/tarvik"));
        QVERIFY(HookEntries::isOutdated(spec("copilot"), installed(spec("copilot"), "{}"), "/new/tarvik"));
    }

    void aForeignCommandUnderTheFirstStartEventIsOutdated()
    {
        const Object first = installed(spec("claude"), "{'hooks':{'UserPromptSubmit':[" + foreignGroup + "]}}");
        QVERIFY(HookEntries::isOutdated(spec("claude"), first, toolPath));
        const Object second = installed(spec("claude"), "{'hooks':{'PreToolUse':[" + foreignGroup + "]}}");
        QVERIFY(!HookEntries::isOutdated(spec("claude"), second, toolPath));
    }

    void aMissingEntryUnderAnyOtherEventIsOutdated()
    {
        for (const char* event : {"PreToolUse", "Stop", "StopFailure"}) {
            Object document = installed(spec("claude"), "{}");
            document.at("hooks").object()->erase(event);
            QVERIFY2(HookEntries::isOutdated(spec("claude"), document, toolPath), event);
        }
    }

    void droidHasTheSameGroupsAtTheTopLevelToo()
    {
        const std::string g = "[" + group("droid") + "]";
        const std::string events = "'UserPromptSubmit':" + g + ",'PreToolUse':" + g + ",'Stop':" + g;
        const std::string expected = "{" + events + ",'hooks':{" + events + "}}";
        COMPARE_JSON(installed(spec("droid"), "{}"), expected);
        COMPARE_JSON(uninstalled(spec("droid"), expected), "{}");
    }

    void droidKeepsForeignGroupsInBothPlaces()
    {
        const std::string file
            = "{'Stop':[" + foreignGroup + "],'Notification':[],'hooks':{'Stop':[" + foreignGroup + "]}}";
        Object document = installed(spec("droid"), file);
        QCOMPARE(document.at("Stop").array()->size(), std::size_t{2});
        HookEntries::remove(spec("droid"), document);
        COMPARE_JSON(document, file);
    }

    void droidsTopLevelKeysThatOnlyShareAnEventsNameAreTheUsers()
    {
        for (const char* value : {"'soon'", "7", "null", "{'hooks':[]}", "['a','b']", "[{'hooks':[]},1]"}) {
            const std::string file = std::string("{'Stop':") + value + "}";
            Object document = installed(spec("droid"), file);
            QVERIFY(document["Stop"] == json(file)["Stop"]);
            QVERIFY(document.contains("PreToolUse"));
            QVERIFY(HookEntries::isInstalled(spec("droid"), document));
            QVERIFY(!HookEntries::isOutdated(spec("droid"), document, toolPath));
            HookEntries::remove(spec("droid"), document);
            COMPARE_JSON(document, file);
        }
    }

    void droidIsInstalledByWhatStandsUnderHooksAlone()
    {
        const std::string g = "[" + group("droid") + "]";
        const std::string events = "'UserPromptSubmit':" + g + ",'PreToolUse':" + g;
        QVERIFY(!HookEntries::isInstalled(spec("droid"), json("{" + events + "}")));
        QVERIFY(HookEntries::isInstalled(spec("droid"), json("{'hooks':{" + events + "}}")));
    }

    void droidIsOutdatedWhenEitherPlaceLacksAnEntry()
    {
        const Object document = installed(spec("droid"), "{}");
        Object withoutTop = document;
        withoutTop.erase("Stop");
        QVERIFY(HookEntries::isOutdated(spec("droid"), withoutTop, toolPath));
        Object withoutHooks = document;
        withoutHooks.erase("hooks");
        QVERIFY(HookEntries::isOutdated(spec("droid"), withoutHooks, toolPath));
    }

    void otherAgentsGetNothingAtTheTopLevel()
    {
        for (const HookSpec& each : HookSpec::all) {
            const Object document = installed(each, "{}");
            QCOMPARE(document.contains(each.startEvents.front()), each.id == "droid");
        }
    }
};

QTEST_GUILESS_MAIN(HookEntriesTest)
#include "HookEntriesTest.moc"
