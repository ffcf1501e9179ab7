// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "core/AgentCatalogue.h"

#include "support/TestSupport.h"

#include <QSet>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class AgentCatalogueTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void knowsTwentyNineAgentsAndEightEditorsInOrder()
    {
        QStringList agents;
        for (const AgentPreset& preset : AgentCatalogue::agents())
            agents.append(preset.id + u'=' + preset.label);
        QCOMPARE(agents.join(u'|'),
            u"claude=Claude Code|codex=Codex|gemini=Gemini CLI|copilot=Copilot CLI|cursor-agent=Cursor Agent (CLI)|"
            "amazonq=Amazon Q|devin=Devin CLI|kimi=Kimi Code|antigravity-cli=Antigravity CLI|aider=Aider|"
            "opencode=OpenCode|cline=Cline|roo=Roo Code|goose=Goose|crush=Crush|amp=Amp|qwen=Qwen Code|"
            "auggie=Augment (Auggie)|continue=Continue|kilo=Kilo Code|pi=Pi|openhands=OpenHands|plandex=Plandex|"
            "codebuff=Codebuff|aichat=aichat|droid=Factory Droid|interpreter=Open Interpreter|hermes=Hermes|"
            "openclaw=OpenClaw"_s);
        QCOMPARE(AgentCatalogue::agents().size(), 29);

        QStringList editors;
        for (const AgentPreset& preset : AgentCatalogue::editors())
            editors.append(preset.id + u'=' + preset.label);
        QCOMPARE(editors.join(u'|'),
            u"cursor=Cursor|windsurf=Windsurf|zed=Zed|warp=Warp|trae=Trae|kiro=Kiro|antigravity=Antigravity|"
            "pearai=PearAI"_s);
    }

    void fourAgentsWithShortNamesCarryAHint()
    {
        QStringList hints;
        for (const AgentPreset& preset : AgentCatalogue::agents()) {
            QVERIFY(!preset.appName);
            if (preset.pathHint)
                hints.append(preset.id + u':' + preset.processNames.join(u',') + u':' + *preset.pathHint);
        }
        QCOMPARE(hints,
            (QStringList{u"antigravity-cli:agy:antigravity"_s,
                u"continue:cn:continuedev"_s,
                u"kilo:kilo:kilocode"_s,
                u"pi:pi:pi-coding-agent"_s}));
    }

    void everyAgentIsKnownByItsProcessNames()
    {
        QStringList names;
        for (const AgentPreset& preset : AgentCatalogue::agents())
            names.append(preset.id + u'=' + preset.processNames.join(u'+'));
        QCOMPARE(names.join(u'|'),
            u"claude=claude|codex=codex|gemini=gemini|copilot=copilot|cursor-agent=cursor-agent|amazonq=qchat|"
            "devin=devin|kimi=kimi|antigravity-cli=agy|aider=aider|opencode=opencode|cline=cline|roo=roo|goose=goose|"
            "crush=crush|amp=amp|qwen=qwen|auggie=auggie|continue=cn|kilo=kilo|pi=pi|openhands=openhands|"
            "plandex=plandex+pdx|codebuff=codebuff|aichat=aichat|droid=droid|interpreter=interpreter|hermes=hermes|"
            "openclaw=openclaw"_s);
    }

    void editorsAreKnownByTheirApplicationNameAlone()
    {
        for (const AgentPreset& preset : AgentCatalogue::editors()) {
            QCOMPARE(preset.appName, preset.label);
            QVERIFY(preset.processNames.isEmpty());
            QVERIFY(!preset.pathHint);
        }
    }

    void theTwoAntigravityRowsAreDistinct()
    {
        QSet<QString> ids;
        for (const AgentPreset& preset : AgentCatalogue::agents() + AgentCatalogue::editors())
            ids.insert(preset.id);
        QCOMPARE(ids.size(), 37);
        QVERIFY(ids.contains(u"antigravity"_s) && ids.contains(u"antigravity-cli"_s));
    }

    void rowsAreEqualOnlyWhenEveryFieldIs()
    {
        const AgentPreset row = AgentCatalogue::agents().first();
        AgentPreset other = row;
        QCOMPARE(other, row);
        other.pathHint = u""_s;
        QVERIFY(other != row);
    }
};

QTEST_GUILESS_MAIN(AgentCatalogueTest)
#include "AgentCatalogueTest.moc"
