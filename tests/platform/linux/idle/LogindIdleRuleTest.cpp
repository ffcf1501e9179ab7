// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/idle/LogindIdleRule.h"

#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;
using enum IdleSleepAction;

namespace {

constexpr qulonglong halfAnHour = 30ULL * 60 * 1'000'000;

} // namespace

class LogindIdleRuleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theActionAndItsTimeAreTold_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<IdleSleepAction>("action");
        QTest::newRow("suspend") << u"suspend"_s << suspend;
        QTest::newRow("sleep") << u"sleep"_s << suspend;
        QTest::newRow("suspend-then-hibernate") << u"suspend-then-hibernate"_s << suspend;
        QTest::newRow("hibernate") << u"hibernate"_s << hibernate;
        QTest::newRow("poweroff") << u"poweroff"_s << other;
    }

    void theActionAndItsTimeAreTold()
    {
        QFETCH(QString, name);
        QFETCH(IdleSleepAction, action);
        const IdleSleepRule expected{.service = u"logind"_s, .action = action, .after = std::chrono::minutes(30)};
        QCOMPARE(LogindIdleRule::in({{u"IdleAction"_s, name}, {u"IdleActionUSec"_s, halfAnHour}}), expected);
    }

    void whatDoesNotEndASessionsWorkIsNothing()
    {
        const IdleSleepRule never{.service = u"logind"_s, .action = nothing, .after = {}};
        for (const auto& name : {u"ignore"_s, u"lock"_s})
            QCOMPARE(LogindIdleRule::in({{u"IdleAction"_s, name}, {u"IdleActionUSec"_s, halfAnHour}}), never);
    }

    void withoutAnAnswerItIsNotKnown()
    {
        const IdleSleepRule unknown{.service = u"logind"_s, .action = {}, .after = {}};
        QCOMPARE(LogindIdleRule::in({}), unknown);
        QCOMPARE(LogindIdleRule::in({{u"IdleAction"_s, 3}, {u"IdleActionUSec"_s, halfAnHour}}), unknown);
    }
};

QTEST_GUILESS_MAIN(LogindIdleRuleTest)
#include "LogindIdleRuleTest.moc"
