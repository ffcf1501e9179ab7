// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "engine/AwakeRules.h"

#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;
using AwakeRules::decide;
using AwakeRules::Decision;
using AwakeRules::Inputs;

namespace {

const Decision awake{.awake = true, .reason = {}};
const Decision dozing{.awake = false, .reason = {}};

Decision paused(const BlockReason& reason)
{
    return {.awake = false, .reason = reason};
}

Inputs working()
{
    Inputs inputs;
    inputs.activeList = {u"Codex"_s};
    return inputs;
}

Inputs onBattery(int percent)
{
    Inputs inputs = working();
    inputs.hasBattery = true;
    inputs.isOnAC = false;
    inputs.batteryPercent = percent;
    return inputs;
}

} // namespace

class AwakeRulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void workKeepsAwake() { QCOMPARE(decide(working()), awake); }

    void switchedOffNeverKeepsAwakeNorPauses()
    {
        Inputs inputs = onBattery(5);
        inputs.isEnabled = false;
        inputs.isHot = true;
        inputs.requireAC = true;
        inputs.timedSessionActive = true;
        QCOMPARE(decide(inputs), dozing);
    }

    void nothingToKeepAwakeForIsDozing() { QCOMPARE(decide(Inputs{}), dozing); }

    void dozesBeforeItIsTooHot()
    {
        Inputs inputs;
        inputs.isHot = true;
        QCOMPARE(decide(inputs), dozing);
    }

    void aTimedSessionKeepsAwakeWithNothingRunning()
    {
        Inputs inputs;
        inputs.timedSessionActive = true;
        QCOMPARE(decide(inputs), awake);
    }

    void aTimedSessionOverridesNeitherThermalStateNorBattery()
    {
        Inputs inputs;
        inputs.timedSessionActive = true;
        inputs.isHot = true;
        QCOMPARE(decide(inputs), paused(BlockReason::tooHot()));
        inputs = onBattery(80);
        inputs.activeList.clear();
        inputs.timedSessionActive = true;
        inputs.requireAC = true;
        QCOMPARE(decide(inputs), paused(BlockReason::onBattery()));
    }

    void theThermalStatePausesOnlyWhenTheUserWantsIt()
    {
        Inputs inputs = working();
        inputs.isHot = true;
        QCOMPARE(decide(inputs), paused(BlockReason::tooHot()));
        inputs.pauseWhenHot = false;
        QCOMPARE(decide(inputs), awake);
    }

    void theThermalStateIsTheReasonWhenPowerWouldPauseToo()
    {
        Inputs inputs = onBattery(5);
        inputs.requireAC = true;
        inputs.batteryLimitEnabled = true;
        inputs.isHot = true;
        QCOMPARE(decide(inputs), paused(BlockReason::tooHot()));
    }

    void aMachineWithoutABatteryNeverPausesForPower()
    {
        Inputs inputs = onBattery(5);
        inputs.hasBattery = false;
        inputs.requireAC = true;
        inputs.batteryLimitEnabled = true;
        QCOMPARE(decide(inputs), awake);
    }

    void batteryPowerPausesOnlyWhenMainsAreRequired()
    {
        Inputs inputs = onBattery(80);
        QCOMPARE(decide(inputs), awake);
        inputs.requireAC = true;
        QCOMPARE(decide(inputs), paused(BlockReason::onBattery()));
        inputs.isOnAC = true;
        QCOMPARE(decide(inputs), awake);
    }

    void onBatteryIsTheReasonBeforeLowBattery()
    {
        Inputs inputs = onBattery(5);
        inputs.requireAC = true;
        inputs.batteryLimitEnabled = true;
        QCOMPARE(decide(inputs), paused(BlockReason::onBattery()));
    }

    void aLowBatteryPausesAlsoWhileCharging_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<bool>("isOnAC");
        QTest::addColumn<bool>("pauses");
        QTest::newRow("below, on battery") << 19 << false << true;
        QTest::newRow("below, charging") << 19 << true << true;
        QTest::newRow("at the threshold") << 20 << true << false;
        QTest::newRow("above") << 21 << false << false;
        QTest::newRow("empty") << 0 << false << true;
    }

    void aLowBatteryPausesAlsoWhileCharging()
    {
        QFETCH(int, percent);
        QFETCH(bool, isOnAC);
        QFETCH(bool, pauses);
        Inputs inputs = onBattery(percent);
        inputs.batteryLimitEnabled = true;
        inputs.isOnAC = isOnAC;
        QCOMPARE(decide(inputs), pauses ? paused(BlockReason::lowBattery(percent, 20)) : awake);
        inputs.batteryLimitEnabled = false;
        QCOMPARE(decide(inputs), awake);
    }

    void anUnknownPercentageNeverPauses()
    {
        Inputs inputs = onBattery(5);
        inputs.batteryPercent.reset();
        inputs.batteryLimitEnabled = true;
        QCOMPARE(decide(inputs), awake);
    }

    void reasonsHaveTheirTexts()
    {
        const auto texts = [](const BlockReason& reason) {
            return QStringList{reason.key(), reason.shortDescription(), reason.pauseTitle()};
        };
        QCOMPARE(texts(BlockReason::tooHot()),
            (QStringList{u"tooHot"_s, u"the Mac is running hot"_s, u"Paused — Mac is running hot"_s}));
        QCOMPARE(texts(BlockReason::onBattery()),
            (QStringList{u"onBattery"_s, u"running on battery"_s, u"Paused — on battery"_s}));
        QCOMPARE(texts(BlockReason::lowBattery(15, 20)),
            (QStringList{u"lowBattery"_s, u"battery 15% is below 20%"_s, u"Paused — battery 15% < 20%"_s}));
        QCOMPARE(BlockReason::lowBattery(-1, 12345).shortDescription(), u"battery -1% is below 12345%"_s);
    }

    void reasonsAreEqualWithTheirNumbersAndTheSamePauseWithoutThem()
    {
        QVERIFY(BlockReason::lowBattery(15, 20) == BlockReason::lowBattery(15, 20));
        QVERIFY(BlockReason::lowBattery(15, 20) != BlockReason::lowBattery(14, 20));
        QVERIFY(BlockReason::lowBattery(15, 20) != BlockReason::lowBattery(15, 25));
        QCOMPARE(BlockReason::lowBattery(15, 20).key(), BlockReason::lowBattery(14, 25).key());
    }
};

QTEST_GUILESS_MAIN(AwakeRulesTest)
#include "AwakeRulesTest.moc"
