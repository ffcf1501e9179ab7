// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hooks/HookMonitor.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeHookChannel.h"
#include "support/TestSupport.h"

#include <QLoggingCategory>
#include <QSignalSpy>

#include <algorithm>
#include <cmath>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace Tarvik;

using Map = QMap<QString, QString>;

class HookMonitorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_clock = std::make_unique<FakeClock>();
        m_channel = std::make_unique<FakeHookChannel>();
        m_monitor = std::make_unique<HookMonitor>(*m_channel, *m_clock);
        m_changes = 0;
        m_monitor->onChange = [this] { ++m_changes; };
    }
    void cleanup()
    {
        m_monitor.reset();
        m_channel.reset();
        m_clock.reset();
    }

    void acquireAndReleaseAreOneChangeEach()
    {
        expectEvent(u"acquire"_s, u"claude"_s, u"changed"_s, 1);
        acquire(u"s1"_s, u"30"_s);
        QCOMPARE(m_changes, 1);
        QCOMPARE(m_monitor->sessions().size(), 1);
        expectEvent(u"release"_s, u"claude"_s, u"changed"_s, 0);
        release(u"s1"_s);
        QCOMPARE(m_changes, 2);
        QVERIFY(m_monitor->sessions().isEmpty());
        QCOMPARE(m_clock->pending(), std::size_t{0});
    }

    void aLeaseHoldsWhatWasSent()
    {
        const TimePoint now = m_clock->now();
        m_channel->announce(Map{{u"action"_s, u"acquire"_s},
            {u"session"_s, u"claude:1"_s},
            {u"tool"_s, u"claude"_s},
            {u"ttl"_s, u"12.5"_s},
            {u"reason"_s, u"tests"_s},
            {u"unknown"_s, u"ignored"_s}});
        QCOMPARE(m_monitor->sessions(),
            QList<HookSession>({{.key = u"claude:1"_s,
                .tool = u"claude"_s,
                .reason = u"tests"_s,
                .acquiredAt = now,
                .expiresAt = now + 12.5s}}));
    }

    void everyEventIsHeardWhateverItComesTo()
    {
        QSignalSpy heard(m_monitor.get(), &HookMonitor::heard);
        acquire(u"s"_s, u"30"_s, u"codex"_s);
        m_clock->advance(5s);
        acquire(u"s"_s, u"30"_s, u"codex"_s);
        release(u"unknown"_s);
        m_channel->announce(Map{{u"action"_s, u"Acquire"_s}, {u"session"_s, u"s"_s}, {u"tool"_s, u"claude"_s}});
        QCOMPARE(heard.size(), 3);
        QCOMPARE(heard[1][0].toString(), u"codex"_s);
        QCOMPARE(heard[1][1].value<TimePoint>(), m_clock->now());
        QCOMPARE(heard[2][0].toString(), u"claude"_s);
    }

    void withoutToolTheLeaseIsAnAgents()
    {
        expectEvent(u"acquire"_s, u"agent"_s, u"changed"_s, 1);
        m_channel->announce(Map{{u"action"_s, u"acquire"_s}, {u"session"_s, u"s"_s}});
        QCOMPARE(m_monitor->sessions().first().tool, u"agent"_s);
        QCOMPARE(m_monitor->sessions().first().reason, std::nullopt);
        QCOMPARE(m_monitor->activeAgents(), QStringList{u"agent"_s});
    }

    void aToolsNameCannotForgeALineOfTheLog()
    {
        expectEvent(u"acquire"_s, u"x\\?\\?\\[2J\\?y"_s, u"changed"_s, 1);
        acquire(u"s"_s, u"30"_s, u"x\n\u009b[2J\u202ey"_s);
        QCOMPARE(m_monitor->sessions().first().tool, u"x\n\u009b[2J\u202ey"_s);
    }

    void aSecondAcquireOfTheSameKeyIsNoChange()
    {
        acquire(u"s"_s, u"30"_s);
        const TimePoint taken = m_clock->now();
        m_clock->advance(20s);
        QSignalSpy published(m_monitor.get(), &HookMonitor::sessionsChanged);
        expectEvent(u"acquire"_s, u"claude"_s, u"no change"_s, 1);
        acquire(u"s"_s, u"30"_s);
        QCOMPARE(m_changes, 1);
        QCOMPARE(published.count(), 1);
        QCOMPARE(m_monitor->sessions().size(), 1);
        QCOMPARE(m_monitor->sessions().first().acquiredAt, taken);
        QCOMPARE(m_monitor->sessions().first().expiresAt, taken + 50s);
    }

    void withoutTtlTheLeaseLapsesAfterFifteenMinutes()
    {
        acquire(u"s"_s, std::nullopt);
        QCOMPARE(m_clock->untilNext(), Seconds{901});
        m_clock->advance(900.5s);
        QCOMPARE(m_changes, 1);
        expectLog(QtInfoMsg, u"^hook lease lapsed without a release; dropping it$"_s);
        m_clock->advance(0.5s);
        QCOMPARE(m_changes, 2);
        QVERIFY(m_monitor->sessions().isEmpty());
        QVERIFY(m_monitor->registry().sessions().isEmpty());
        QCOMPARE(m_clock->pending(), std::size_t{0});
    }

    void theLifetimeIsReadAsDecimalText_data()
    {
        QTest::addColumn<QString>("ttl");
        QTest::addColumn<double>("seconds");
        const auto row
            = [](const char* ttl, double seconds) { QTest::newRow(ttl) << QString::fromUtf8(ttl) << seconds; };
        row("30", 30);
        row("0.25", 0.25);
        row(".5", 0.5);
        row("5.", 5);
        row("+7", 7);
        row("007", 7);
        row("1e3", 1000);
        row("1E-3", 0.001);
        row("86400000", 86'400'000);
        row("inf", INFINITY);
        row("Infinity", INFINITY);
        row("1e999", INFINITY);
        row("1e-999", 0);
        row("0", 0);
        row("-5", 0);
        row("-0.001", 0);
        row("-1e999", 0);
        row("-inf", 0);
        row("nan", 0);
        row("NaN", 0);
        row("-nan", 0);
        row("", 900);
        row(" 30", 900);
        row("30 ", 900);
        row("\t30", 900);
        row("\n", 900);
        row("abc", 900);
        row("thirty", 900);
        row("30s", 900);
        row("1,5", 900);
        row("1_000", 900);
        row("0x10", 900);
        row("nan(7)", 900);
        row("infinite", 900);
        row("--5", 900);
        row("+-5", 900);
        row("-", 900);
        row("+", 900);
        row(".", 900);
        row("1e", 900);
        row("1.2.3", 900);
        row("٣٠", 900);
        row("∞", 900);
        QTest::newRow("a NUL within") << QString(u"3\0"
                                                 "0"_s)
                                      << 900.0;
    }
    void theLifetimeIsReadAsDecimalText()
    {
        QFETCH(const QString, ttl);
        QFETCH(const double, seconds);
        acquire(u"s"_s, ttl);
        const HookSession held = m_monitor->registry().sessions().value(u"s"_s);
        QCOMPARE(held.expiresAt, m_clock->now() + Seconds{seconds});
        QCOMPARE(m_changes, 1);
        QCOMPARE(m_monitor->sessions().isEmpty(), seconds == 0);
        const double untilNext = m_clock->untilNext().count();
        QVERIFY(untilNext == seconds + 1 || std::abs(untilNext - seconds - 1) < 1e-6);
    }

    void aLeaseThatIsDeadAtOnceIsStillAChange()
    {
        expectEvent(u"acquire"_s, u"claude"_s, u"changed"_s, 0);
        acquire(u"s"_s, u"-5"_s);
        QVERIFY(m_monitor->sessions().isEmpty());
        QVERIFY(m_monitor->activeAgents().isEmpty());
        QCOMPARE(m_changes, 1);
        expectEvent(u"acquire"_s, u"claude"_s, u"changed"_s, 0);
        acquire(u"s"_s, u"0"_s);
        QCOMPARE(m_changes, 2);
        QCOMPARE(m_clock->untilNext(), Seconds{1});
        expectLog(QtInfoMsg, u"^hook lease lapsed"_s);
        m_clock->advance(1s);
        QCOMPARE(m_changes, 3);
    }

    void anEndlessLeaseNeverLapses()
    {
        acquire(u"s"_s, u"inf"_s);
        m_clock->advance(1e9s);
        QCOMPARE(m_monitor->activeAgents(), QStringList{u"Claude Code"_s});
        release(u"s"_s);
        QCOMPARE(m_changes, 2);
    }

    void anUnknownReleaseIsNoChange()
    {
        expectEvent(u"release"_s, u"claude"_s, u"no change"_s, 0);
        release(u"unknown"_s);
        QCOMPARE(m_changes, 0);
    }

    void aReleaseOfALapsedLeaseIsNoChangeAndRemovesIt()
    {
        acquire(u"s"_s, u"10"_s);
        m_clock->advance(10s);
        QCOMPARE(m_changes, 1);
        expectEvent(u"release"_s, u"claude"_s, u"no change"_s, 0);
        release(u"s"_s);
        QCOMPARE(m_changes, 1);
        QVERIFY(m_monitor->registry().sessions().isEmpty());
        QCOMPARE(m_clock->pending(), std::size_t{0});
    }

    void aReleaseIsForItsOwnKeyOnly()
    {
        acquire(u"a"_s);
        acquire(u"b"_s);
        expectEvent(u"release"_s, u"claude"_s, u"changed"_s, 1);
        release(u"a"_s);
        QCOMPARE(m_monitor->sessions().first().key, u"b"_s);
    }

    void releaseAllEmptiesTheTable()
    {
        acquire(u"a"_s);
        acquire(u"b"_s, u"0"_s);
        expectEvent(u"release-all"_s, u"agent"_s, u"changed"_s, 0);
        m_channel->announce(Map{{u"action"_s, u"release-all"_s}});
        QCOMPARE(m_changes, 3);
        QVERIFY(m_monitor->registry().sessions().isEmpty());
        QCOMPARE(m_clock->pending(), std::size_t{0});
    }

    void releaseAllWithoutALiveLeaseIsNoChange()
    {
        expectEvent(u"release-all"_s, u"agent"_s, u"no change"_s, 0);
        m_channel->announce(Map{{u"action"_s, u"release-all"_s}});
        acquire(u"dead"_s, u"0"_s);
        expectEvent(u"release-all"_s, u"agent"_s, u"no change"_s, 0);
        m_channel->announce(Map{{u"action"_s, u"release-all"_s}});
        QCOMPARE(m_changes, 1);
    }

    void aMalformedNotificationChangesNothing_data()
    {
        QTest::addColumn<bool>("isMap");
        QTest::addColumn<Map>("payload");
        const QString session = u"session"_s;
        const QString action = u"action"_s;
        QTest::newRow("no map") << false << Map();
        QTest::newRow("empty") << true << Map();
        QTest::newRow("no action") << true << Map{{session, u"s"_s}};
        QTest::newRow("capital A") << true << Map{{action, u"Acquire"_s}, {session, u"s"_s}};
        QTest::newRow("blank around the action") << true << Map{{action, u" acquire"_s}, {session, u"s"_s}};
        QTest::newRow("unknown action") << true << Map{{action, u"hold"_s}, {session, u"s"_s}};
        QTest::newRow("empty action") << true << Map{{action, QString()}, {session, u"s"_s}};
        QTest::newRow("acquire without session") << true << Map{{action, u"acquire"_s}};
        QTest::newRow("release without session") << true << Map{{action, u"release"_s}, {u"tool"_s, u"claude"_s}};
        QTest::newRow("capital S") << true << Map{{action, u"acquire"_s}, {u"Session"_s, u"s"_s}};
    }
    void aMalformedNotificationChangesNothing()
    {
        QFETCH(const bool, isMap);
        QFETCH(const Map, payload);
        acquire(u"s"_s);
        const auto before = m_monitor->registry().sessions();
        QSignalSpy published(m_monitor.get(), &HookMonitor::sessionsChanged);
        expectLog(QtInfoMsg, u"^hook notification ignored: unrecognised payload$"_s);
        m_channel->announce(isMap ? HookChannel::Payload(payload) : std::nullopt);
        QCOMPARE(m_changes, 1);
        QCOMPARE(published.count(), 0);
        QCOMPARE(m_monitor->registry().sessions(), before);
    }

    void anEmptyKeyIsAKey()
    {
        acquire(QString());
        QCOMPARE(m_monitor->sessions().size(), 1);
        release(QString());
        QVERIFY(m_monitor->sessions().isEmpty());
    }

    void theTimerWaitsForTheEarliestLapse()
    {
        acquire(u"late"_s, u"100"_s);
        acquire(u"early"_s, u"10"_s);
        QCOMPARE(m_clock->pending(), std::size_t{1});
        QCOMPARE(m_clock->untilNext(), Seconds{11});
        release(u"early"_s);
        QCOMPARE(m_clock->untilNext(), Seconds{101});
        acquire(u"late"_s, u"200"_s);
        QCOMPARE(m_clock->untilNext(), Seconds{201});
    }

    void aLapseThatIsNearGetsItsWholeSecondOfSlack()
    {
        acquire(u"first"_s, u"10"_s);
        acquire(u"second"_s, u"10.2"_s);
        m_clock->advance(9.9s);
        release(u"first"_s);
        QVERIFY(std::abs(m_clock->untilNext().count() - 1.3) < 1e-6);
        expectLog(QtInfoMsg, u"^hook lease lapsed without a release; dropping it$"_s);
        m_clock->advance(1.31s);
        QCOMPARE(m_changes, 4);
        QCOMPARE(m_clock->pending(), std::size_t{0});
    }

    void leasesThatLapseTogetherAreOneChange()
    {
        for (const QString& key : {u"a"_s, u"b"_s, u"c"_s})
            acquire(key, u"10"_s);
        acquire(u"later"_s, u"20"_s);
        expectLog(QtInfoMsg, u"^hook lease lapsed without a release; dropping it$"_s);
        m_clock->advance(11s);
        QCOMPARE(m_changes, 5);
        QCOMPARE(m_monitor->sessions().size(), 1);
        QCOMPARE(m_clock->untilNext(), Seconds{10});
    }

    void aTimerThatFindsNothingLapsedIsArmedAgain()
    {
        acquire(u"s"_s, u"10"_s);
        m_clock->setBack(5s);
        m_clock->advance(11s);
        QCOMPARE(m_changes, 1);
        QCOMPARE(m_clock->pending(), std::size_t{1});
        expectLog(QtInfoMsg, u"^hook lease lapsed"_s);
        m_clock->advance(5s);
        QCOMPARE(m_changes, 2);
    }

    void theTimerGivesALapseOfLongAgoOneMoreSecond()
    {
        acquire(u"s"_s, u"10"_s);
        // The wall clock is set on, past the lapse.
        m_clock->setBack(-100s);
        acquire(u"other"_s);
        QCOMPARE(m_clock->untilNext(), Seconds{1});
    }

    void publishedSessionsStayUntilTheNextEvent()
    {
        acquire(u"s"_s, u"10"_s);
        m_clock->advance(10.5s);
        QCOMPARE(m_monitor->sessions().size(), 1);
        QVERIFY(m_monitor->activeAgents().isEmpty());
    }

    void sessionsAreCompleteWhenTheyAreAnnounced()
    {
        qsizetype atSignal = -1;
        qsizetype atChange = -1;
        connect(m_monitor.get(), &HookMonitor::sessionsChanged, this, [&] {
            atSignal = m_monitor->sessions().size();
            QCOMPARE(atChange, -1);
        });
        m_monitor->onChange = [&] { atChange = m_monitor->sessions().size(); };
        acquire(u"s"_s);
        QCOMPARE(atSignal, 1);
        QCOMPARE(atChange, 1);
    }

    void sessionsAreAPropertyThatTellsOfItsChanges()
    {
        const QMetaObject* type = m_monitor->metaObject();
        const QMetaProperty property = type->property(type->indexOfProperty("sessions"));
        QVERIFY(property.hasNotifySignal());
        acquire(u"s"_s);
        QCOMPARE(property.read(m_monitor.get()).value<QList<HookSession>>(), m_monitor->sessions());
    }

    void activeAgentsAreNamedWithoutRepeatsByAge()
    {
        acquire(u"1"_s, u"900"_s, u"gemini"_s);
        m_clock->advance(1s);
        acquire(u"2"_s, u"900"_s, u"claude"_s);
        acquire(u"3"_s, u"900"_s, u"home-made"_s);
        m_clock->advance(1s);
        acquire(u"4"_s, u"900"_s, u"gemini"_s);
        acquire(u"5"_s, u"900"_s, u"copilot"_s);
        QCOMPARE(m_monitor->activeAgents(),
            QStringList({u"Gemini CLI"_s, u"Claude Code"_s, u"home-made"_s, u"Copilot CLI"_s}));
        release(u"1"_s);
        QCOMPARE(m_monitor->activeAgents(),
            QStringList({u"Claude Code"_s, u"home-made"_s, u"Gemini CLI"_s, u"Copilot CLI"_s}));
    }

    void withoutACallbackNothingIsCalled()
    {
        m_monitor->onChange = nullptr;
        acquire(u"s"_s);
        QCOMPARE(m_monitor->sessions().size(), 1);
    }

    void itsEndLetsGoOfTheChannelAndTheTimer()
    {
        acquire(u"s"_s);
        QCOMPARE(m_clock->pending(), std::size_t{1});
        m_monitor.reset();
        QCOMPARE(m_clock->pending(), std::size_t{0});
        acquire(u"s"_s);
        QCOMPARE(m_changes, 1);
    }

    void aDenseStreamOfDeadLeasesIsInNobodysWay()
    {
        const QLoggingCategory::CategoryFilter filter = QLoggingCategory::installFilter(&silence);
        for (int event = 0; event < 50'000; ++event) {
            m_clock->advance(0.0001s);
            acquire(QString::number(event), u"0"_s);
        }
        QLoggingCategory::installFilter(filter);
        QCOMPARE(m_changes, 50'000 + 50'000 / int(HookRegistry::maximumCount) - 1);
        acquire(u"live"_s);
        QCOMPARE(m_monitor->sessions().size(), 1);
    }

    void oneLeaseTooManyIsRefused()
    {
        const QLoggingCategory::CategoryFilter filter = QLoggingCategory::installFilter(&silence);
        for (int number = 0; number < HookRegistry::maximumCount; ++number)
            acquire(QString::number(number), u"inf"_s);
        QLoggingCategory::installFilter(filter);
        QCOMPARE(m_monitor->sessions().size(), HookRegistry::maximumCount);
        const int before = m_changes;
        expectLog(QtWarningMsg, u"^hook notification ignored: too many sessions held$"_s);
        acquire(u"new"_s);
        QCOMPARE(m_changes, before);
        QCOMPARE(m_monitor->sessions().size(), HookRegistry::maximumCount);
        expectEvent(u"acquire"_s, u"claude"_s, u"no change"_s, 1000);
        acquire(u"7"_s, u"inf"_s);
        release(u"7"_s);
        QCOMPARE(m_changes, before + 1);
        acquire(u"new"_s);
        QCOMPARE(m_changes, before + 2);
        QCOMPARE(m_monitor->sessions().last().key, u"new"_s);
    }

private:
    static void silence(QLoggingCategory* category)
    {
        category->setEnabled(QtInfoMsg, false);
        category->setEnabled(QtWarningMsg, false);
    }

    static void expectEvent(const QString& action, const QString& tool, const QString& change, int held)
    {
        expectLog(
            QtInfoMsg, u"^hook %1 from %2 \\(%3\\); %4 session\\(s\\) held$"_s.arg(action, tool, change).arg(held));
    }

    void acquire(
        const QString& key, const std::optional<QString>& ttl = std::nullopt, const QString& tool = u"claude"_s) const
    {
        Map payload{{u"action"_s, u"acquire"_s}, {u"session"_s, key}, {u"tool"_s, tool}};
        if (ttl)
            payload.insert(u"ttl"_s, *ttl);
        m_channel->announce(payload);
    }

    void release(const QString& key) const
    {
        m_channel->announce(Map{{u"action"_s, u"release"_s}, {u"session"_s, key}, {u"tool"_s, u"claude"_s}});
    }

    std::unique_ptr<FakeClock> m_clock;
    std::unique_ptr<FakeHookChannel> m_channel;
    std::unique_ptr<HookMonitor> m_monitor;
    int m_changes = 0;
};

QTEST_GUILESS_MAIN(HookMonitorTest)
#include "HookMonitorTest.moc"
