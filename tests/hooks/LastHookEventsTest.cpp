// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hooks/LastHookEvents.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeHookChannel.h"
#include "fakes/FakeSettingsStore.h"
#include "hooks/HookMonitor.h"
#include "support/TestSupport.h"

#include <QSignalSpy>

#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace Tarvik;

class LastHookEventsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_store.emplace();
        m_events.emplace(m_monitor, *m_store);
    }
    void cleanup() { m_events.reset(); }

    void theLastEventOfEachAgentIsKept()
    {
        QSignalSpy changed(&*m_events, &LastHookEvents::timesChanged);
        QVERIFY(m_events->times().isEmpty());
        const TimePoint first = m_clock.now();
        announce(u"acquire"_s, u"codex"_s);
        announce(u"acquire"_s, u"claude"_s);
        m_clock.advance(90s);
        announce(u"release"_s, u"claude"_s);
        QCOMPARE(m_events->times(), (QMap<QString, TimePoint>{{u"codex"_s, first}, {u"claude"_s, first + 90s}}));
        QCOMPARE(changed.size(), 3);
    }

    void whoIsNoAgentWithAHookIsNotKept()
    {
        announce(u"acquire"_s, u"aider"_s);
        announce(u"acquire"_s, u""_s);
        QVERIFY(m_events->times().isEmpty());
        QCOMPARE(m_store->writes, QStringList());
    }

    void theNextTarvikKnowsThem()
    {
        announce(u"acquire"_s, u"claude"_s);
        m_clock.advance(100s);
        announce(u"release"_s, u"claude"_s);
        const TimePoint last = m_clock.now();
        m_events.reset();
        m_events.emplace(m_monitor, *m_store);
        QCOMPARE(m_events->times(), (QMap<QString, TimePoint>{{u"claude"_s, last}}));
    }

    void anAgentAtWorkIsStoredOnceInAQuarterOfAnHour()
    {
        for (int minute = 0; minute < 60; ++minute) {
            announce(u"acquire"_s, u"claude"_s);
            m_clock.advance(60s);
        }
        QCOMPARE(m_store->writes.size(), 4);
        m_events.reset();
        QCOMPARE(m_store->writes.size(), 5);
    }

    void aClockThatWasAheadStopsNothingFromBeingStored()
    {
        announce(u"acquire"_s, u"claude"_s);
        m_clock.setBack(24h);
        announce(u"acquire"_s, u"claude"_s);
        QCOMPARE(m_store->writes.size(), 2);
        QCOMPARE(m_events->times().value(u"claude"_s), m_clock.now());
    }

    void aHookThatIsNewHasToShowAnewThatItWorks()
    {
        announce(u"acquire"_s, u"claude"_s);
        QSignalSpy changed(&*m_events, &LastHookEvents::timesChanged);
        m_events->forget(u"codex"_s);
        QCOMPARE(changed.size(), 0);
        m_events->forget(u"claude"_s);
        QCOMPARE(changed.size(), 1);
        QVERIFY(m_events->times().isEmpty());
        m_events.reset();
        m_events.emplace(m_monitor, *m_store);
        QVERIFY(m_events->times().isEmpty());
    }

    void whatIsStoredWronglyIsPassedOver_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<QStringList>("known");
        QTest::newRow("no document") << QVariant(QByteArray("{")) << QStringList();
        QTest::newRow("no object") << QVariant(QByteArray("[1]")) << QStringList();
        QTest::newRow("another type") << QVariant(u"{}"_s) << QStringList();
        QTest::newRow("some of it") << QVariant(QByteArray(R"({"aider":5,"claude":5,"codex":"5","gemini":-1})"))
                                    << QStringList{u"claude"_s};
    }

    void whatIsStoredWronglyIsPassedOver()
    {
        QFETCH(QVariant, stored);
        QFETCH(QStringList, known);
        m_events.reset();
        m_store->values[u"lastHookEvents"_s] = stored;
        m_events.emplace(m_monitor, *m_store);
        QCOMPARE(m_events->times().keys(), known);
    }

private:
    void announce(const QString& action, const QString& tool)
    {
        m_channel.announce(QMap<QString, QString>{{u"action"_s, action}, {u"session"_s, u"s"_s}, {u"tool"_s, tool}});
    }

    FakeClock m_clock;
    FakeHookChannel m_channel;
    HookMonitor m_monitor{m_channel, m_clock};
    std::optional<FakeSettingsStore> m_store;
    std::optional<LastHookEvents> m_events;
};

QTEST_GUILESS_MAIN(LastHookEventsTest)
#include "LastHookEventsTest.moc"
