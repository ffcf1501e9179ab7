// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "why/WhyCollector.h"

#include "ExplainedMachine.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class WhyCollectorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_machine.emplace();
        m_machine->start();
    }

    void cleanup() { m_machine.reset(); }

    void nobodyIsAskedBeforeSomebodyWantsToKnow()
    {
        m_machine->machine.run("claude\n");
        m_machine->machine.clock.advance(24h);
        CoordinatedMachine::settle();
        QCOMPARE(questions(), (QList<int>{0, 0, 0}));
    }

    void whoeverAsksMeanwhileGetsTheSame()
    {
        QStringList told;
        m_machine->collector->collect([&](const WhyReport&) { told.append(u"first"_s); });
        m_machine->collector->collect([&](const WhyReport&) { told.append(u"second"_s); });
        QVERIFY(told.isEmpty());
        QTRY_COMPARE(told, (QStringList{u"first"_s, u"second"_s}));
        QCOMPARE(questions(), (QList<int>{1, 1, 1}));
        m_machine->report();
        QCOMPARE(questions(), (QList<int>{2, 2, 2}));
    }

    void whoeverIsToldMayAskAgain()
    {
        int told = 0;
        m_machine->collector->collect([&](const WhyReport&) {
            ++told;
            m_machine->collector->collect([&](const WhyReport&) { ++told; });
        });
        QTRY_COMPARE(told, 2);
    }

    void aReportThatNobodyWaitsForAnyMoreIsDropped()
    {
        m_machine->collector->collect([](const WhyReport&) { QFAIL("told all the same"); });
        m_machine->collector.reset();
        m_machine->restart();
        m_machine->report();
    }

    void aReportSaysWhatIsSoWhenItIsTold()
    {
        ExplainedMachine& m = *m_machine;
        const TimePoint start = m.machine.clock.now();
        m.locks.current = {{FakeSleepLocks::lock(u"mpv"_s, u"logind"_s, {})}, {u"a"_s}};
        m.idleSleep.current = {{u"logind"_s, IdleSleepAction::nothing, {}}};
        m.sleepHistory.current = QList<PastSleep>{{start - 60s, start - 30s}};
        std::optional<WhyReport> told;
        m.collector->collect([&](const WhyReport& report) { told = report; });
        m.machine.clock.advance(10s);
        m.machine.run("claude\n");
        m.machine.coordinator->setTimedSession(10);
        QTRY_VERIFY(told);
        QCOMPARE(told->now, start + 10s);
        QCOMPARE(told->runningSince, start);
        QVERIFY(told->isAwake);
        QCOMPARE(told->statusReason, u"Awake — 11 min left"_s);
        QCOMPARE(told->active, QStringList{u"Claude Code"_s});
        QCOMPARE(told->sessionEnd, start + 610s);
        QVERIFY(!told->runsWithLidClosed);
        QCOMPARE(told->holds, m.machine.assertions.holds());
        QCOMPARE(told->locks, m.locks.current);
        QCOMPARE(told->idleRules, m.idleSleep.current);
        QCOMPARE(told->journal, m.machine.journal->entries());
        QCOMPARE(told->sleeps, m.sleepHistory.current);
    }

    void hooksAreListedWithTheirLastEvents()
    {
        CoordinatedMachine& machine = m_machine->machine;
        for (const char* id : {"codex", "claude"})
            QVERIFY(machine.hookFiles.install(*HookSpec::find(id)));
        machine.hook({{u"action"_s, u"release"_s}, {u"session"_s, u"any"_s}, {u"tool"_s, u"codex"_s}});
        machine.hook({{u"action"_s, u"release"_s}, {u"session"_s, u"any"_s}, {u"tool"_s, u"gemini"_s}});
        const QList<WhyHook> expected{
            {u"claude"_s, u"Claude Code"_s, {}}, {u"codex"_s, u"Codex"_s, machine.clock.now()}};
        QVERIFY(m_machine->report().hooks == expected);
    }

private:
    QList<int> questions() const
    {
        return {m_machine->locks.questions, m_machine->idleSleep.questions, m_machine->sleepHistory.questions};
    }

    std::optional<ExplainedMachine> m_machine;
};

QTEST_GUILESS_MAIN(WhyCollectorTest)
#include "WhyCollectorTest.moc"
