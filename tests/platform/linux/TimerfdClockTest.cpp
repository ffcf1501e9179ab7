// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/TimerfdClock.h"

#include "support/TestSupport.h"

using namespace Tarvik;
using namespace std::chrono_literals;

class TimerfdClockTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void aOneShotTimerFiresOnce()
    {
        int fired = 0;
        const auto timer = m_clock.after(10ms, [&] { ++fired; });
        int later = 0;
        const auto second = m_clock.after(60ms, [&] { ++later; });
        QTRY_COMPARE(later, 1);
        QCOMPARE(fired, 1);
    }

    void aDelayThatIsNotPositiveFiresOnTheNextTurn()
    {
        int fired = 0;
        const auto timer = m_clock.after(-5s, [&] { ++fired; });
        QCOMPARE(fired, 0);
        QTRY_COMPARE(fired, 1);
    }

    void aRepeatingTimerFiresAgainAndAgain()
    {
        int fired = 0;
        const auto timer = m_clock.every(5ms, [&] { ++fired; });
        QTRY_VERIFY(fired >= 3);
    }

    void aDestroyedTimerStaysSilent()
    {
        bool fired = false;
        auto timer = m_clock.after(5ms, [&] { fired = true; });
        timer.reset();
        bool later = false;
        const auto other = m_clock.after(30ms, [&] { later = true; });
        QTRY_VERIFY(later);
        QVERIFY(!fired);
    }

    void aTimerMayBeDestroyedByItsOwnAction()
    {
        std::unique_ptr<Timer> timer;
        bool fired = false;
        timer = m_clock.every(1ms, [&] {
            fired = true;
            timer.reset();
        });
        QTRY_VERIFY(fired);
        QVERIFY(!timer);
    }

    void anEndlessDelayIsAccepted()
    {
        const auto timer = m_clock.after(Seconds{std::numeric_limits<double>::infinity()}, [] { QFAIL("fired"); });
        QVERIFY(timer);
    }

private:
    TimerfdClock m_clock;
};

QTEST_GUILESS_MAIN(TimerfdClockTest)
#include "TimerfdClockTest.moc"
