// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "tool/CommandLine.h"

#include "support/TestSupport.h"

using namespace Tarvik;

using Verb = CommandLine::Verb;

static CommandLine parsed(const std::vector<std::string>& arguments)
{
    const auto result = parseCommandLine(arguments);
    const auto* line = std::get_if<CommandLine>(&result);
    return line ? *line : CommandLine{Verb::version, "not", "a", "valid", "line", false, {}};
}

class CommandLineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void acquireTakesAllItsOptions()
    {
        const CommandLine expected{Verb::acquire, "k", "make", "1.5", "a b", false, {}};
        QVERIFY(parsed({"acquire", "--session", "k", "--tool=make", "--ttl", "1.5", "--reason", "a b"}) == expected);
    }

    void releaseTakesItsSession()
    {
        QVERIFY(parsed({"release", "--session=k=1"}) == (CommandLine{Verb::release, "k=1", {}, {}, {}, false, {}}));
        QVERIFY(parsed({"release-all"}) == (CommandLine{Verb::releaseAll, {}, {}, {}, {}, false, {}}));
    }

    void holdLeavesTheCommandsOwnOptionsAlone()
    {
        const CommandLine expected{Verb::hold, {}, {}, {}, "r", false, {"make", "--reason", "x", "--", "-j2"}};
        QVERIFY(parsed({"hold", "--reason", "r", "make", "--reason", "x", "--", "-j2"}) == expected);
        QVERIFY(parsed({"hold", "--reason", "r", "--", "make", "--reason", "x", "--", "-j2"}) == expected);
        QVERIFY(parsed({"hold", "--", "--odd"}) == (CommandLine{Verb::hold, {}, {}, {}, {}, false, {"--odd"}}));
    }

    void whatIsAskedCanBeJson()
    {
        for (const auto& [name, verb] : {std::pair{"status", Verb::status}, std::pair{"why", Verb::why}}) {
            QVERIFY(parsed({name}) == (CommandLine{verb, {}, {}, {}, {}, false, {}}));
            QVERIFY(parsed({name, "--json"}) == (CommandLine{verb, {}, {}, {}, {}, true, {}}));
        }
    }

    void statusCanBeFollowed()
    {
        QVERIFY(!parsed({"status", "--json"}).follows);
        QVERIFY(parsed({"status", "--follow"}).follows);
        QVERIFY(parsed({"status", "--follow", "--json"}).asJson);
    }

    void helpIsEverywhere()
    {
        for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
                 {"help"}, {"--help"}, {"-h"}, {"acquire", "--help"}, {"hold", "-h"}, {"status", "--help"}})
            QVERIFY(parsed(arguments).verb == Verb::help);
        QVERIFY(parsed({"hold", "ls", "--help"}).verb == Verb::hold);
    }

    void whatMakesNoSenseIsSaidInOneLine_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("message");

        const auto row = [](const char* arguments, const char* message) {
            QTest::newRow(arguments) << QString::fromUtf8(arguments) << QString::fromUtf8(message);
        };
        row("", "no command given");
        row("sleep", "unknown command \"sleep\"");
        row("acquire", "acquire: --session is missing");
        row("acquire --session=", "acquire: --session is missing");
        row("acquire --session", "acquire: --session needs a value");
        row("acquire --session k --ttl x", "acquire: --ttl must be a number of seconds, not \"x\"");
        row("acquire --session k --ttl=-5", "acquire: --ttl must be a number of seconds, not \"-5\"");
        row("acquire --session k --ttl=.5", "acquire: --ttl must be a number of seconds, not \".5\"");
        row("acquire --session k --ttl=5.", "acquire: --ttl must be a number of seconds, not \"5.\"");
        row("acquire --session k --ttl=1e3", "acquire: --ttl must be a number of seconds, not \"1e3\"");
        row("acquire --session k --ttl=", "acquire: --ttl must be a number of seconds, not \"\"");
        row("acquire --session k --ttl=nan", "acquire: --ttl must be a number of seconds, not \"nan\"");
        row("acquire --session k more", "acquire: unexpected argument \"more\"");
        row("acquire --json", "acquire: unknown option \"--json\"");
        row("acquire --follow", "acquire: unknown option \"--follow\"");
        row("unhook --json", "unhook: unknown option \"--json\"");
        row("unhook claude", "unhook: unexpected argument \"claude\"");
        row("release", "release: --session is missing");
        row("release --session k --ttl 5", "release: unknown option \"--ttl\"");
        row("release-all now", "release-all: unexpected argument \"now\"");
        row("hold", "hold: no command to run");
        row("hold --", "hold: no command to run");
        row("hold --session k ls", "hold: unknown option \"--session\"");
        row("status --xml", "status: unknown option \"--xml\"");
        row("status now", "status: unexpected argument \"now\"");
        row("why --xml", "why: unknown option \"--xml\"");
        row("why not", "why: unexpected argument \"not\"");
        row("--version now", "--version: unexpected argument \"now\"");
    }

    void whatMakesNoSenseIsSaidInOneLine()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, message);
        std::vector<std::string> words;
        for (const QString& word : arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            words.push_back(word.toStdString());
        const auto result = parseCommandLine(words);
        const auto* error = std::get_if<UsageError>(&result);
        QVERIFY(error);
        QCOMPARE(QString::fromStdString(error->message), message);
    }

    void theHooksAgentIsFoundWhateverStandsAroundIt()
    {
        QCOMPARE(parseHookArguments({"--tool", "claude"}), std::string("claude"));
        QCOMPARE(parseHookArguments({"--tool=codex"}), std::string("codex"));
        QCOMPARE(parseHookArguments({"--new", "x", "--tool", "qwen", "y"}), std::string("qwen"));
        QCOMPARE(parseHookArguments({"--tool"}), std::string());
        QCOMPARE(parseHookArguments({}), std::string());
    }
};

QTEST_GUILESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
