// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/idle/XfceIdleRule.h"

#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using enum IdleSleepAction;

namespace {

const QVersionNumber debian12(4, 18, 1);
const QVersionNumber debian13(4, 20, 0);
const IdleSleepRule never{.service = u"XFCE"_s, .action = nothing, .after = {}};

IdleSleepRule rule(IdleSleepAction action, std::chrono::seconds after)
{
    return {.service = u"XFCE"_s, .action = action, .after = after};
}

} // namespace

class XfceIdleRuleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void byDefaultItDoesNothing()
    {
        for (const QVersionNumber& release : {debian12, debian13, QVersionNumber()})
            QCOMPARE(XfceIdleRule::of({.release = release}, true), never);
    }

    void minutesMeanWhatTheReleaseTakesThemFor()
    {
        QCOMPARE(XfceIdleRule::of({.release = debian12, .minutes = 14U}, true), never);
        QCOMPARE(XfceIdleRule::of({.release = debian13, .minutes = 14U}, true), rule(suspend, 14min));
        QCOMPARE(XfceIdleRule::of({.release = debian13, .minutes = 0}, true), never);
        QCOMPARE(XfceIdleRule::of({.release = debian13, .minutes = 30}, true), rule(suspend, 30min));
        QCOMPARE(XfceIdleRule::of({.release = debian13, .minutes = u"soon"_s}, true), never);
    }

    void onBatteryOlderReleasesHibernateUnlessToldOtherwise()
    {
        QCOMPARE(XfceIdleRule::of({.release = debian12, .minutes = 30U}, false), rule(hibernate, 30min));
        QCOMPARE(XfceIdleRule::of({.release = debian13, .minutes = 30U}, false), rule(suspend, 30min));
        QCOMPARE(XfceIdleRule::of({.release = debian12, .minutes = 30U, .sleepMode = 1U}, false), rule(suspend, 30min));
    }

    void theSleepModeIsTheAction()
    {
        QCOMPARE(
            XfceIdleRule::of({.release = debian13, .minutes = 30U, .sleepMode = 2U}, true), rule(hibernate, 30min));
        QCOMPARE(XfceIdleRule::of({.release = debian13, .minutes = 30U, .sleepMode = 4U}, true), rule(other, 30min));
        QCOMPARE(XfceIdleRule::of({.release = debian13, .minutes = 30U, .sleepMode = 0U}, true), never);
    }

    void inPresentationModeItDoesNothing()
    {
        QCOMPARE(XfceIdleRule::of({.release = debian13, .presentationMode = true, .minutes = 30U}, true), never);
    }
};

QTEST_GUILESS_MAIN(XfceIdleRuleTest)
#include "XfceIdleRuleTest.moc"
