// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/request/AgentSearch.h"

#include "core/AgentCatalogue.h"
#include "support/TestSupport.h"

#include <QStringList>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class AgentSearchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void aLabelIsFoundByAnyPartOfIt_data()
    {
        QTest::addColumn<QString>("search");
        QTest::addColumn<QStringList>("labels");
        QTest::newRow("whole") << u"Codex"_s << QStringList{u"Codex"_s};
        QTest::newRow("in other case") << u"CLAUDE c"_s << QStringList{u"Claude Code"_s};
        QTest::newRow("in the middle") << u"(aug"_s << QStringList{u"Augment (Auggie)"_s};
        QTest::newRow("of several, in the catalogue's order") << u"cli"_s
                                                              << QStringList{u"Gemini CLI"_s,
                                                                     u"Copilot CLI"_s,
                                                                     u"Cursor Agent (CLI)"_s,
                                                                     u"Devin CLI"_s,
                                                                     u"Antigravity CLI"_s,
                                                                     u"Cline"_s};
        QTest::newRow("with blanks around it") << u" \t codex\u00a0\n"_s << QStringList{u"Codex"_s};
        QTest::newRow("with a blank within") << u"y c"_s << QStringList{u"Antigravity CLI"_s};
        QTest::newRow("with blanks that are not there") << u"kimi  code"_s << QStringList();
        QTest::newRow("of none") << u"no such agent"_s << QStringList();
        QTest::newRow("no pattern") << u".*"_s << QStringList();
    }
    void aLabelIsFoundByAnyPartOfIt()
    {
        QFETCH(const QString, search);
        QFETCH(const QStringList, labels);
        QCOMPARE(found(AgentCatalogue::agents(), search), labels);
    }

    void anAgentIsFoundByAProcessNameThatItsLabelDoesNotContain()
    {
        QCOMPARE(found(AgentCatalogue::agents(), u"pdx"_s), QStringList{u"Plandex"_s});
        QCOMPARE(found(AgentCatalogue::agents(), u"QCHAT"_s), QStringList{u"Amazon Q"_s});
    }

    void anEditorIsFoundByTheSameRule()
    {
        QCOMPARE(found(AgentCatalogue::editors(), u"AR"_s), QStringList({u"Warp"_s, u"PearAI"_s}));
        QCOMPARE(found(AgentCatalogue::editors(), u"pdx"_s), QStringList());
    }

    void aSearchOfOnlyBlanksShowsEverything()
    {
        for (const QString& blanks : {QString(), u" "_s, u" \t\u00a0\n"_s}) {
            QCOMPARE(AgentSearch::matching(AgentCatalogue::agents(), blanks), AgentCatalogue::agents());
            QCOMPARE(AgentSearch::matching(AgentCatalogue::editors(), blanks), AgentCatalogue::editors());
        }
    }

private:
    static QStringList found(const QList<AgentPreset>& rows, const QString& search)
    {
        QStringList labels;
        for (const AgentPreset& row : AgentSearch::matching(rows, search))
            labels.append(row.label);
        return labels;
    }
};

QTEST_GUILESS_MAIN(AgentSearchTest)
#include "AgentSearchTest.moc"
