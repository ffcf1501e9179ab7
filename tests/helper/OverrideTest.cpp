// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "helper/Override.h"

#include "support/TestSupport.h"

using namespace Tarvik;
using namespace std::chrono_literals;

using Callers = std::vector<std::string>;

class OverrideTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void itIsOffUntilSomebodyAsks()
    {
        Override override(75s);
        QVERIFY(!override.isOn());
        QVERIFY(!override.nextLapse());
        override.ask("a", m_start);
        QVERIFY(override.isOn());
    }

    void itIsOnUntilTheLastCallerHasTakenItBack()
    {
        Override override(75s);
        override.ask("a", m_start);
        override.ask("b", m_start);
        override.takeBack("a");
        QVERIFY(override.isOn());
        override.takeBack("b");
        QVERIFY(!override.isOn());
    }

    void askingTwiceIsTakenBackOnce()
    {
        Override override(75s);
        override.ask("a", m_start);
        override.ask("a", m_start + 1s);
        override.takeBack("a");
        QVERIFY(!override.isOn());
    }

    void whoHasNotAskedTakesNothingBack()
    {
        Override override(75s);
        override.takeBack("b");
        override.ask("a", m_start);
        override.takeBack("b");
        QVERIFY(override.isOn());
    }

    void aRequestLapsesWhenItsCallerIsNotHeardOf()
    {
        Override override(75s);
        override.ask("a", m_start);
        QCOMPARE(override.nextLapse(), m_start + 75s);
        QCOMPARE(override.lapsed(m_start + 75s - 1us), Callers());
        QCOMPARE(override.lapsed(m_start + 75s), Callers({"a"}));
        // It is still asked for until it is taken back.
        QVERIFY(override.isOn());
    }

    void aHeartbeatRenewsTheRequestOfItsCallerOnly()
    {
        Override override(75s);
        override.ask("a", m_start);
        override.ask("b", m_start);
        override.hear("a", m_start + 30s);
        QCOMPARE(override.nextLapse(), m_start + 75s);
        QCOMPARE(override.lapsed(m_start + 75s), Callers({"b"}));
        QCOMPARE(override.lapsed(m_start + 105s), Callers({"a", "b"}));
    }

    void askingAgainRenewsAsAHeartbeatDoes()
    {
        Override override(75s);
        override.ask("a", m_start);
        override.ask("a", m_start + 30s);
        QCOMPARE(override.nextLapse(), m_start + 105s);
    }

    void aHeartbeatAsksForNothing()
    {
        Override override(75s);
        override.hear("a", m_start);
        QVERIFY(!override.isOn());
    }

    void aHeartbeatEveryHalfMinuteHoldsItForADay()
    {
        Override override(75s);
        override.ask("a", m_start);
        for (auto now = m_start; now < m_start + 24h; now += 30s) {
            override.hear("a", now);
            QCOMPARE(override.lapsed(now + 29s), Callers());
        }
    }

    void theNextLapseIsOfWhoWasHeardOfFirst()
    {
        Override override(75s);
        override.ask("b", m_start + 2s);
        override.ask("a", m_start + 1s);
        override.ask("c", m_start + 3s);
        QCOMPARE(override.nextLapse(), m_start + 76s);
        override.takeBack("a");
        QCOMPARE(override.nextLapse(), m_start + 77s);
    }

private:
    const Override::Clock::time_point m_start{1h};
};

QTEST_APPLESS_MAIN(OverrideTest)
#include "OverrideTest.moc"
