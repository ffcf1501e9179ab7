// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "tool/HookEvent.h"

#include "core/HookSpec.h"
#include "support/TestSupport.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Tarvik;

static const Environment emptyEnvironment = [](const char*) { return std::string(); };

/// JSON text, with ' for ".
static std::string json(std::string text)
{
    std::replace(text.begin(), text.end(), '\'', '"');
    return text;
}

static std::optional<Announcement> heard(std::string_view tool, const std::string& text)
{
    return hookAnnouncement(tool, readHookPayload(text), emptyEnvironment);
}

class HookEventTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void capturedPayloadsLeadToTheirAction_data()
    {
        QTest::addColumn<QString>("agent");
        QTest::addColumn<QString>("event");
        QTest::addColumn<QString>("action");
        QTest::addColumn<QByteArray>("payload");

        QFile file(QStringLiteral(TARVIK_PAYLOADS));
        QVERIFY(file.open(QIODevice::ReadOnly));
        int count = 0;
        for (const QByteArray& line : file.readAll().split('\n')) {
            if (line.isEmpty() || line.startsWith('#'))
                continue;
            const QByteArrayList fields = line.split('\t');
            QCOMPARE(fields.size(), qsizetype(5));
            const QByteArray name = fields[0] + ' ' + fields[1] + ' ' + fields[2] + ' ' + QByteArray::number(++count);
            QTest::newRow(name.constData()) << QString::fromUtf8(fields[0]) << QString::fromUtf8(fields[2])
                                            << QString::fromUtf8(fields[3]) << fields[4];
        }
        QCOMPARE(count, 35);
    }

    void capturedPayloadsLeadToTheirAction()
    {
        QFETCH(QString, agent);
        QFETCH(QString, event);
        QFETCH(QString, action);
        QFETCH(QByteArray, payload);
        const std::string tool = agent.toStdString();
        const HookPayload read = readHookPayload(payload.toStdString());
        QVERIFY(read.isComplete);
        QCOMPARE(QString::fromStdString(hookEventName(tool, read)), event);

        const auto announcement = hookAnnouncement(tool, read, emptyEnvironment);
        if (action == QStringLiteral("nothing")) {
            QVERIFY(!announcement);
            return;
        }
        QVERIFY(announcement);
        const QJsonObject object = QJsonDocument::fromJson(payload).object();
        const QString key
            = object.contains(QStringLiteral("sessionId")) ? QStringLiteral("sessionId") : QStringLiteral("session_id");
        QCOMPARE(QString::fromStdString(announcement->action), action);
        QCOMPARE(QString::fromStdString(announcement->tool), agent);
        QCOMPARE(QString::fromStdString(announcement->session), agent + u':' + object.value(key).toString());
        QVERIFY(announcement->ttl.empty());
    }

    void everyEventOfTheTableLeadsToItsAction()
    {
        for (const HookSpec& spec : HookSpec::all) {
            const auto check = [&](std::string_view event, const char* action) {
                const auto announcement
                    = heard(spec.id, json("{'session_id':'s','hook_event_name':'") + std::string(event) + json("'}"));
                QVERIFY(announcement);
                QCOMPARE(announcement->action, std::string(action));
                QCOMPARE(announcement->session, std::string(spec.id) + ":s");
            };
            for (const auto event : spec.startEvents)
                check(event, "acquire");
            for (const auto event : spec.endEvents)
                check(event, "release");
            for (const auto* event : {"Interrupt", "SessionEnd", "sessionEnd", "errorOccurred"})
                check(event, "release");
        }
    }

    void subAgentsOfOneConversationShareItsLease()
    {
        const auto own = heard("claude", json("{'session_id':'s','agent_id':'a1','hook_event_name':'PreToolUse'}"));
        const auto parents = heard("claude", json("{'session_id':'s','hook_event_name':'Stop'}"));
        QVERIFY(own && parents);
        QCOMPARE(own->session, parents->session);
        QVERIFY(!heard("claude", json("{'session_id':'s','agent_id':'a1','hook_event_name':'SubagentStop'}")));
    }

    void subAgentsWithTheirOwnConversationHaveTheirOwnLease()
    {
        const auto own = heard("copilot", json("{'sessionId':'b','prompt':'p','agentId':'b','parentAgentId':'a'}"));
        QVERIFY(own);
        QCOMPARE(own->session, std::string("copilot:b"));
    }

    void eventsAreInferredFromTheFieldsOfTheOneAgentThatNamesNone_data()
    {
        QTest::addColumn<QString>("members");
        QTest::addColumn<QString>("event");

        const auto row = [](const std::string& members, const char* event) {
            QTest::newRow(members.c_str()) << QString::fromStdString(members) << QString::fromUtf8(event);
        };
        row(json("'prompt':''"), "userPromptSubmitted");
        row(json("'toolName':'bash','toolArgs':{'error':1,'toolResult':2}"), "preToolUse");
        row(json("'toolName':'bash','toolArgs':{},'toolResult':{'resultType':'success'}"), "");
        row(json("'toolName':'bash','error':'x'"), "");
        row(json("'stopReason':'end_turn'"), "agentStop");
        row(json("'agentName':'x','stopReason':'end_turn'"), "");
        row(json("'stopReason':'end_turn','response':'x'"), "");
        row(json("'error':{'message':'x'}"), "errorOccurred");
        row(json("'reason':'complete'"), "sessionEnd");
        row(json("'source':'new','initialPrompt':'x'"), "");
        row(json("'hook_event_name':'PreToolUse','prompt':'x'"), "PreToolUse");
    }

    void eventsAreInferredFromTheFieldsOfTheOneAgentThatNamesNone()
    {
        QFETCH(QString, members);
        QFETCH(QString, event);
        const HookPayload payload = readHookPayload(json("{'sessionId':'s',") + members.toStdString() + "}");
        QCOMPARE(QString::fromStdString(hookEventName("copilot", payload)), event);
        QCOMPARE(QString::fromStdString(hookEventName("claude", payload)), QString::fromStdString(payload.event));
    }

    void theSessionFallsBackStepByStep_data()
    {
        QTest::addColumn<QString>("agent");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("variable");
        QTest::addColumn<QString>("key");

        const auto row
            = [](const char* name, const char* agent, const std::string& text, const char* variable, const char* key) {
                  QTest::newRow(name) << QString::fromUtf8(agent) << QString::fromStdString(text)
                                      << QString::fromUtf8(variable) << QString::fromUtf8(key);
              };
        row("payload before environment", "claude", json("{'session_id':'p'}"), "CLAUDE_CODE_SESSION_ID", "claude:p");
        row("environment", "claude", json("{'transcript_path':'/t'}"), "CLAUDE_CODE_SESSION_ID", "claude:e");
        row("empty session", "claude", json("{'session_id':''}"), "CLAUDE_CODE_SESSION_ID", "claude:e");
        row("session that is no text", "claude", json("{'session_id':5,'cwd':'/c'}"), "", "claude:/c");
        row("gemini", "gemini", "{}", "GEMINI_SESSION_ID", "gemini:e");
        row("qwen", "qwen", "{}", "QWEN_CODE_SESSION_ID", "qwen:e");
        row("droid", "droid", "{}", "session_id", "droid:e");
        row("not JSON", "gemini", "hello", "GEMINI_SESSION_ID", "gemini:e");
        row("another agent's variable", "qwen", json("{'cwd':'/c'}"), "CLAUDE_CODE_SESSION_ID", "qwen:/c");
        row("transcript", "codex", json("{'cwd':'/c','transcript_path':'/t'}"), "", "codex:/t");
        row("transcript, camel case", "copilot", json("{'cwd':'/c','transcriptPath':'/t'}"), "", "copilot:/t");
        row("working directory", "codex", json("{'cwd':'/c'}"), "", "codex:/c");
        row("nothing", "codex", "{}", "", "");
    }

    void theSessionFallsBackStepByStep()
    {
        QFETCH(QString, agent);
        QFETCH(QString, text);
        QFETCH(QString, variable);
        QFETCH(QString, key);
        const Environment environment
            = [&](const char* name) { return variable == QString::fromUtf8(name) ? std::string("e") : std::string(); };
        const HookPayload payload = readHookPayload(text.toStdString());
        QCOMPARE(QString::fromStdString(hookSessionKey(agent.toStdString(), payload, environment)), key);
    }

    void withoutAnEventNothingIsAnnounced()
    {
        const Environment environment = [](const char*) { return std::string("e"); };
        for (const auto* text : {"", "hello", "[]", "{}", "null", "'text'", "{'session_id':'s'}"})
            QVERIFY(!hookAnnouncement("claude", readHookPayload(json(text)), environment));
    }

    void anUnknownAgentIsNotAnnounced()
    {
        QVERIFY(!heard("other", json("{'session_id':'s','hook_event_name':'Stop'}")));
        QVERIFY(!heard("", json("{'session_id':'s','hook_event_name':'Stop'}")));
        QVERIFY(!heard("Claude", json("{'session_id':'s','hook_event_name':'Stop'}")));
    }

    void eventNamesAreCaseSensitive()
    {
        QVERIFY(!heard("claude", json("{'session_id':'s','hook_event_name':'stop'}")));
        QVERIFY(!heard("claude", json("{'session_id':'s','hook_event_name':'BeforeAgent'}")));
    }

    void onlyTheOutermostMembersCount()
    {
        const auto announcement = heard("claude",
            json("{'tool_input':{'session_id':'inner','hook_event_name':'Stop'},'a':[{'session_id':'x'}],"
                 "'hook_event_name':'PreToolUse','session_id':'outer'}"));
        QVERIFY(announcement);
        QCOMPARE(announcement->action, std::string("acquire"));
        QCOMPARE(announcement->session, std::string("claude:outer"));
        QVERIFY(!heard("claude", json("[{'session_id':'s','hook_event_name':'Stop'}]")));
    }

    void whatStoodBeforeTheCutIsKept()
    {
        const auto announcement = heard("claude",
            json("{'session_id':'s','cwd':'/c','hook_event_name':'PreToolUse','tool_input':{'content':'aaaa"));
        QVERIFY(announcement);
        QCOMPARE(announcement->session, std::string("claude:s"));
        const auto prompt = heard("copilot", json("{'sessionId':'s','prompt':'half a \\ud83d surrogate'}"));
        QVERIFY(prompt);
        QCOMPARE(prompt->action, std::string("acquire"));
    }

    void anyCutIsHarmless()
    {
        const std::string text = json("{'session_id':'s','n':-1.5e300,'a':[1,{'b':null}],'hook_event_name':'Stop'}");
        for (std::size_t size = 0; size < text.size() - 1; ++size)
            QVERIFY(!readHookPayload(text.substr(0, size)).isComplete || size > text.find("Stop"));
        QVERIFY(heard("claude", text));
    }

    void deepNestingIsHarmless()
    {
        const std::string deep(1000 * 1000, '[');
        const auto announcement = heard("claude", json("{'hook_event_name':'Stop','x':") + deep);
        QVERIFY(!announcement);
        const auto after = heard("claude",
            json("{'hook_event_name':'Stop','x':") + std::string(100000, '[') + std::string(100000, ']')
                + json(",'session_id':'s'}"));
        QVERIFY(after);
    }
};

QTEST_GUILESS_MAIN(HookEventTest)
#include "HookEventTest.moc"
