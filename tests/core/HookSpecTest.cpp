// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "core/HookSpec.h"

#include "core/AgentCatalogue.h"
#include "core/HookTraits.h"
#include "support/TestSupport.h"

#include <QUrl>

#include <set>
#include <string>
#include <unordered_set>
#include <vector>

using namespace Qt::StringLiterals;
using namespace Tarvik;
using HookConfig::Shape;

namespace {

QString toQString(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QStringList toList(std::span<const std::string_view> texts)
{
    QStringList list;
    for (const auto text : texts)
        list.append(toQString(text));
    return list;
}

} // namespace

class HookSpecTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theTableHoldsSixAgentsInOrder()
    {
        QStringList ids;
        for (const HookSpec& spec : HookSpec::all)
            ids.append(toQString(spec.id));
        QCOMPARE(ids, QStringList({u"claude"_s, u"codex"_s, u"gemini"_s, u"qwen"_s, u"droid"_s, u"copilot"_s}));
    }

    void eachRowIsAsTheAgentNeedsIt_data()
    {
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("configPath");
        QTest::addColumn<bool>("isFlat");
        QTest::addColumn<QStringList>("startEvents");
        QTest::addColumn<QStringList>("endEvents");
        QTest::addColumn<bool>("tagged");
        const QStringList prompt{u"UserPromptSubmit"_s, u"PreToolUse"_s};
        const QStringList stop{u"Stop"_s};
        QTest::newRow("claude") << u"Claude Code"_s << u".claude/settings.json"_s << false << prompt
                                << QStringList{u"Stop"_s, u"StopFailure"_s} << true;
        QTest::newRow("codex") << u"Codex"_s << u".codex/hooks.json"_s << false << prompt << stop << false;
        QTest::newRow("gemini") << u"Gemini CLI"_s << u".gemini/settings.json"_s << false
                                << QStringList{u"BeforeAgent"_s, u"BeforeTool"_s} << QStringList{u"AfterAgent"_s}
                                << true;
        QTest::newRow("qwen") << u"Qwen Code"_s << u".qwen/settings.json"_s << false << prompt << stop << true;
        QTest::newRow("droid") << u"Factory Droid"_s << u".factory/hooks.json"_s << false << prompt << stop << true;
        QTest::newRow("copilot") << u"Copilot CLI"_s << u".copilot/hooks/tarvik.json"_s << true
                                 << QStringList{u"userPromptSubmitted"_s, u"preToolUse"_s}
                                 << QStringList{u"agentStop"_s} << true;
    }
    void eachRowIsAsTheAgentNeedsIt()
    {
        const HookSpec* spec = HookSpec::find(QTest::currentDataTag());
        QVERIFY(spec != nullptr);
        QTEST(toQString(spec->label), "label");
        QTEST(toQString(spec->configPath), "configPath");
        QTEST(spec->shape == Shape::flatList, "isFlat");
        QTEST(toList(spec->startEvents), "startEvents");
        QTEST(toList(spec->endEvents), "endEvents");
        QTEST(spec->tagged, "tagged");
    }

    void eachRowLinksToDocumentationOfItsOwn()
    {
        std::set<std::string_view> links;
        for (const HookSpec& spec : HookSpec::all) {
            const QUrl link(toQString(spec.docs), QUrl::StrictMode);
            QVERIFY(link.isValid());
            QCOMPARE(link.scheme(), u"https"_s);
            links.insert(spec.docs);
        }
        QCOMPARE(links.size(), HookSpec::all.size());
    }

    void eachIdIsAlsoAnAgentOfTheCatalogue()
    {
        QStringList known;
        for (const AgentPreset& agent : AgentCatalogue::agents())
            known.append(agent.id);
        for (const HookSpec& spec : HookSpec::all)
            QVERIFY2(known.contains(toQString(spec.id)), spec.id.data());
    }

    void anUnknownIdFindsNothing()
    {
        QVERIFY(HookSpec::find("Claude") == nullptr);
        QVERIFY(HookSpec::find("") == nullptr);
    }

    void equalityAndHashLookAtEveryField()
    {
        const HookSpec original = HookSpec::all.front();
        const std::hash<HookSpec> hash;
        // The same texts at other addresses are the same spec.
        const std::string id = "claude";
        const std::array<std::string_view, 2> startEvents{"UserPromptSubmit", "PreToolUse"};
        HookSpec copy = original;
        copy.id = id;
        copy.startEvents = startEvents;
        QVERIFY(copy == original);
        QCOMPARE(hash(copy), hash(original));

        std::vector<HookSpec> variants(8, original);
        variants[0].id = "x";
        variants[1].label = "x";
        variants[2].configPath = "x";
        variants[3].shape = Shape::flatList;
        variants[4].startEvents = original.endEvents;
        variants[5].endEvents = original.startEvents;
        variants[6].tagged = false;
        variants[7].docs = "x";
        std::unordered_set<std::size_t> hashes{hash(original)};
        for (const HookSpec& variant : variants) {
            QVERIFY(!(variant == original));
            hashes.insert(hash(variant));
        }
        QCOMPARE(hashes.size(), std::size_t{9});
    }

    void traitsAreThoseOfKnownAgentsAndOthersHaveNone()
    {
        for (const HookTraits& traits : HookAgents::unusual)
            QVERIFY2(HookSpec::find(traits.id) != nullptr, traits.id.data());
        for (const char* id : {"codex-cli", "unknown", ""}) {
            const HookTraits traits = HookTraits::of(id);
            QVERIFY(traits.start == HookStart::restart);
            QVERIFY(!traits.readsTopLevel && !traits.leavesEventsUnnamed && traits.sessionVariable == nullptr);
        }
        QVERIFY(HookTraits::of("droid").readsTopLevel);
        QVERIFY(HookTraits::of("copilot").leavesEventsUnnamed);
        QVERIFY(HookTraits::of("claude").start == HookStart::prompt);
        QVERIFY(HookTraits::of("codex").start == HookStart::approval);
        QVERIFY(HookTraits::of("gemini").start == HookStart::trustedFolder);
        QVERIFY(HookTraits::of("qwen").start == HookStart::restart);
    }
};

QTEST_GUILESS_MAIN(HookSpecTest)
#include "HookSpecTest.moc"
