// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "engine/StatusText.h"

#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

constexpr TimePoint now{Seconds{1'700'000'000}};

} // namespace

class StatusTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void minutesLeftCountTheOneUnderWay_data()
    {
        QTest::addColumn<double>("seconds");
        QTest::addColumn<int>("minutes"); // -1: no session
        QTest::newRow("ten minutes sharp") << 600.0 << 11;
        QTest::newRow("just under thirty minutes") << 1799.999 << 30;
        QTest::newRow("59 seconds") << 59.0 << 1;
        QTest::newRow("the last moment") << 0.001 << 1;
        QTest::newRow("at the end") << 0.0 << -1;
        QTest::newRow("past the end") << -1.0 << -1;
        QTest::newRow("an age") << 1e300 << std::numeric_limits<int>::max();
    }

    void minutesLeftCountTheOneUnderWay()
    {
        QFETCH(double, seconds);
        QFETCH(int, minutes);
        QCOMPARE(StatusText::minutesLeft(now + Seconds{seconds}, now).value_or(-1), minutes);
    }

    void withoutASessionThereAreNoMinutes() { QVERIFY(!StatusText::minutesLeft({}, now)); }

    void titleNamesTheState()
    {
        using StatusText::title;
        QCOMPARE(title({.isEnabled = false, .isPaused = true, .isAwake = false}), u"Off"_s);
        QCOMPARE(title({.isEnabled = true, .isPaused = true, .isAwake = true}), u"Paused"_s);
        QCOMPARE(title({.isEnabled = true, .isPaused = false, .isAwake = true}), u"Awake"_s);
        QCOMPARE(title({.isEnabled = true, .isPaused = false, .isAwake = false}), u"Watching"_s);
    }

    void reasonCountsAgentsAndApps_data()
    {
        QTest::addColumn<int>("agents");
        QTest::addColumn<int>("apps");
        QTest::addColumn<QString>("text");
        QTest::newRow("one agent") << 1 << 0 << u"Awake · 1 agent"_s;
        QTest::newRow("one app") << 0 << 1 << u"Awake · 1 app"_s;
        QTest::newRow("one of each") << 1 << 1 << u"Awake · 1 agent, 1 app"_s;
        QTest::newRow("several") << 3 << 2 << u"Awake · 3 agents, 2 apps"_s;
        QTest::newRow("leases alone") << 0 << 0 << u"Awake"_s;
    }

    void reasonCountsAgentsAndApps()
    {
        QFETCH(int, agents);
        QFETCH(int, apps);
        QFETCH(QString, text);
        StatusText::ReasonInputs inputs;
        inputs.awake = true;
        inputs.agentCount = agents;
        inputs.appCount = apps;
        QCOMPARE(StatusText::reason(inputs), text);
    }

    void reasonOfATimedSessionTellsTheMinutes()
    {
        StatusText::ReasonInputs inputs;
        inputs.awake = true;
        inputs.timedSessionActive = true;
        inputs.agentCount = 2;
        inputs.minutesLeft = 25;
        QCOMPARE(StatusText::reason(inputs), u"Awake — 25 min left"_s);
        inputs.minutesLeft.reset();
        QCOMPARE(StatusText::reason(inputs), u"Awake — timed"_s);
    }

    void reasonOfAPauseIsItsTitle()
    {
        StatusText::ReasonInputs inputs;
        inputs.reason = BlockReason::onBattery();
        inputs.timedSessionActive = true;
        QCOMPARE(StatusText::reason(inputs), u"Paused — on battery"_s);
    }

    void reasonOfNothingToDoIsDozing() { QCOMPARE(StatusText::reason({}), u"Dozing — nothing to watch"_s); }

    void subtitleNamesWhatIsActive_data()
    {
        QTest::addColumn<QStringList>("active");
        QTest::addColumn<QString>("text");
        QTest::newRow("one") << QStringList{u"Codex"_s} << u"Codex"_s;
        QTest::newRow("exactly two") << QStringList{u"Claude Code"_s, u"Codex"_s} << u"Claude Code, Codex"_s;
        QTest::newRow("three") << QStringList{u"Claude Code"_s, u"Codex"_s, u"Zed"_s}
                               << u"Claude Code, Codex +1 more"_s;
        QTest::newRow("five") << QStringList{u"Claude Code"_s, u"Codex"_s, u"a"_s, u"b"_s, u"c"_s}
                              << u"Claude Code, Codex +3 more"_s;
    }

    void subtitleNamesWhatIsActive()
    {
        QFETCH(QStringList, active);
        QFETCH(QString, text);
        StatusText::SubtitleInputs inputs;
        inputs.activeList = active;
        inputs.timedSessionActive = true;
        QCOMPARE(StatusText::subtitle(inputs), text);
    }

    void subtitleWithoutAnythingActive()
    {
        StatusText::SubtitleInputs inputs;
        QCOMPARE(StatusText::subtitle(inputs), u"Nothing running to keep awake for"_s);
        inputs.timedSessionActive = true;
        QCOMPARE(StatusText::subtitle(inputs), u"Timed session"_s);
        inputs.activeList = {u"Codex"_s};
        inputs.reason = BlockReason::lowBattery(15, 20);
        QCOMPARE(StatusText::subtitle(inputs), u"battery 15% is below 20%"_s);
        inputs.isEnabled = false;
        QCOMPARE(StatusText::subtitle(inputs), u"Not watching"_s);
    }

    void detailsListBatteryThermalStateLidAndSessionInThisOrder()
    {
        StatusText::DetailsInputs inputs;
        QCOMPARE(StatusText::details(inputs), QString());
        inputs.hasBattery = true;
        inputs.batteryPercent = 80;
        inputs.isHot = true;
        inputs.thermalState = 2;
        inputs.lidClosedMode = true;
        inputs.minutesLeft = 25;
        QCOMPARE(StatusText::details(inputs), u"charging 80% · running hot · lid closed · 25 min left"_s);
        inputs.isOnAC = false;
        inputs.thermalState = 3;
        QCOMPARE(StatusText::details(inputs), u"on battery 80% · running very hot · lid closed · 25 min left"_s);
    }

    void detailsOfAnUnknownBatteryAreEmpty()
    {
        StatusText::DetailsInputs inputs;
        inputs.hasBattery = true;
        QCOMPARE(StatusText::details(inputs), QString());
        inputs.hasBattery = false;
        inputs.batteryPercent = 50;
        QCOMPARE(StatusText::details(inputs), QString());
    }

    void detailsDoNotRepeatTheReason()
    {
        StatusText::DetailsInputs inputs;
        inputs.hasBattery = true;
        inputs.batteryPercent = 15;
        inputs.isHot = true;
        inputs.thermalState = 2;
        inputs.reason = BlockReason::lowBattery(15, 20);
        QCOMPARE(StatusText::details(inputs), u"running hot"_s);
        inputs.reason = BlockReason::onBattery();
        QCOMPARE(StatusText::details(inputs), u"running hot"_s);
        inputs.reason = BlockReason::tooHot();
        QCOMPARE(StatusText::details(inputs), u"charging 15%"_s);
    }

    void everyThermalStateHasAWord()
    {
        QStringList words;
        for (const int state : {-1, 0, 1, 2, 3, 4})
            words.append(StatusText::thermalWord(state));
        QCOMPARE(words, (QStringList{u"unknown"_s, u"normal"_s, u"warm"_s, u"hot"_s, u"very hot"_s, u"unknown"_s}));
    }
};

QTEST_GUILESS_MAIN(StatusTextTest)
#include "StatusTextTest.moc"
