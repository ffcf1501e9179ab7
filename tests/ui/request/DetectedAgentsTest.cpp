// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/request/DetectedAgents.h"

#include "core/AgentCatalogue.h"
#include "support/TestSupport.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class DetectedAgentsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void everythingIsListedAgentsFirst()
    {
        const qsizetype agents = AgentCatalogue::agents().size();
        QCOMPARE(m_model.rowCount(), static_cast<int>(agents + AgentCatalogue::editors().size()));
        QCOMPARE(row(0), QVariantList({u"Claude Code"_s, u"claude"_s, false, u"Agents"_s}));
        QCOMPARE(row(agents - 1), QVariantList({u"OpenClaw"_s, u"openclaw"_s, false, u"Agents"_s}));
        QCOMPARE(row(agents), QVariantList({u"Cursor"_s, QString(), true, u"AI editors (while open)"_s}));
        QCOMPARE(
            row(m_model.rowCount() - 1), QVariantList({u"PearAI"_s, QString(), true, u"AI editors (while open)"_s}));
    }

    void aSearchLeavesWhatItFindsInBothSections()
    {
        QSignalSpy changed(&m_model, &DetectedAgents::searchChanged);
        m_model.setSearch(u"antigravity"_s);
        QCOMPARE(m_model.rowCount(), 2);
        QCOMPARE(row(0), QVariantList({u"Antigravity CLI"_s, u"agy"_s, false, u"Agents"_s}));
        QCOMPARE(row(1), QVariantList({u"Antigravity"_s, QString(), true, u"AI editors (while open)"_s}));
        m_model.setSearch(u"pdx"_s);
        QCOMPARE(m_model.rowCount(), 1);
        QCOMPARE(row(0), QVariantList({u"Plandex"_s, u"plandex, pdx"_s, false, u"Agents"_s}));
        m_model.setSearch(u"zed"_s);
        QCOMPARE(m_model.rowCount(), 1);
        QCOMPARE(row(0), QVariantList({u"Zed"_s, QString(), true, u"AI editors (while open)"_s}));
        m_model.setSearch(u"no such agent"_s);
        QCOMPARE(m_model.rowCount(), 0);
        m_model.setSearch({});
        QVERIFY(m_model.rowCount() > 2);
        QCOMPARE(changed.size(), 5);
    }

private:
    QVariantList row(qsizetype index) const
    {
        QVariantList values;
        for (const int role : {DetectedAgents::labelRole,
                 DetectedAgents::processNamesRole,
                 DetectedAgents::isEditorRole,
                 DetectedAgents::sectionRole})
            values.append(m_model.data(m_model.index(static_cast<int>(index)), role));
        return values;
    }

    DetectedAgents m_model;
    QAbstractItemModelTester m_tester{&m_model, QAbstractItemModelTester::FailureReportingMode::QtTest};
};

QTEST_GUILESS_MAIN(DetectedAgentsTest)
#include "DetectedAgentsTest.moc"
