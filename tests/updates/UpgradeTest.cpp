// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "updates/Upgrade.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeProgramFile.h"
#include "support/TestSupport.h"

#include <optional>

using namespace Tarvik;

namespace {

constexpr Seconds moment{0.5};
constexpr Seconds hour{3600};

} // namespace

class UpgradeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_upgrade.reset();
        m_clock.emplace();
        m_program.emplace();
        m_isIdle = true;
        m_restarts = 0;
        m_news = 0;
        m_upgrade.emplace(*m_program,
            *m_clock,
            Upgrade::Actions{.isIdle = [this] { return m_isIdle; }, .restart = [this] { ++m_restarts; }});
        m_pendingChanges = m_upgrade->pendingChanged.subscribe([this] { ++m_news; });
    }

    void withoutAnUpgradeNothingHappens()
    {
        m_upgrade->reconsider();
        QCOMPARE(m_clock->pending(), std::size_t{0});
        QVERIFY(!m_upgrade->isPending());
    }

    void anIdleProgramRestartsSoon()
    {
        m_program->change(true);
        m_clock->advance(Upgrade::settleTime);
        QVERIFY(m_upgrade->isPending());
        QCOMPARE(m_news, 1);
        m_clock->advance(Upgrade::calmTime);
        QVERIFY(m_program->isBeingChecked());
        QCOMPARE(m_restarts, 0);
        m_program->answer(true);
        QCOMPARE(m_restarts, 1);
    }

    void whatChangesOneAfterAnotherIsWaitedFor()
    {
        for (int file = 0; file < 10; ++file) {
            m_program->change(true);
            m_clock->advance(Upgrade::settleTime - moment);
            QVERIFY(!m_upgrade->isPending());
        }
        m_clock->advance(moment);
        QVERIFY(m_upgrade->isPending());
    }

    void moreOfItStopsTheRestart()
    {
        settle();
        m_clock->advance(Upgrade::calmTime);
        m_program->change(true);
        m_program->answer(true);
        QCOMPARE(m_restarts, 0);
        m_clock->advance(Upgrade::settleTime + Upgrade::calmTime);
        m_program->answer(true);
        QCOMPARE(m_restarts, 1);
        QCOMPARE(m_news, 1);
    }

    void aRemovedProgramGoesOnRunning()
    {
        m_program->change(false);
        m_clock->advance(hour);
        QVERIFY(!m_upgrade->isPending());
        QCOMPARE(m_program->checks, 0);
        QCOMPARE(m_clock->pending(), std::size_t{0});
    }

    void anUpgradeThatIsRemovedAgainIsNoneAnyMore()
    {
        m_isIdle = false;
        settle();
        m_program->change(false);
        m_clock->advance(Upgrade::settleTime);
        QVERIFY(!m_upgrade->isPending());
        QCOMPARE(m_news, 2);
        become(true);
        m_clock->advance(hour);
        QCOMPARE(m_program->checks, 0);
    }

    void whatIsHeldIsHeldToItsEnd()
    {
        m_isIdle = false;
        settle();
        m_clock->advance(7 * 24 * hour);
        QVERIFY(m_upgrade->isPending());
        QCOMPARE(m_clock->pending(), std::size_t{0});
        become(true);
        m_clock->advance(Upgrade::calmTime);
        m_program->answer(true);
        QCOMPARE(m_restarts, 1);
    }

    void workThatGoesOnAfterAMomentIsNotInterrupted()
    {
        settle();
        for (int turn = 0; turn < 3; ++turn) {
            m_clock->advance(Upgrade::calmTime - moment);
            become(false);
            m_clock->advance(hour);
            become(true);
        }
        QCOMPARE(m_program->checks, 0);
        m_clock->advance(Upgrade::calmTime);
        QCOMPARE(m_program->checks, 1);
    }

    void newsWhileNothingIsHeldDoNotPutItOff()
    {
        settle();
        m_clock->advance(Upgrade::calmTime - moment);
        m_upgrade->reconsider();
        m_clock->advance(moment);
        QCOMPARE(m_program->checks, 1);
        m_upgrade->reconsider();
        m_clock->advance(hour);
        QCOMPARE(m_program->checks, 1);
    }

    void workThatBeginsDuringTheCheckIsNotInterrupted()
    {
        settle();
        m_clock->advance(Upgrade::calmTime);
        // Nobody has told of it yet.
        m_isIdle = false;
        m_program->answer(true);
        QCOMPARE(m_restarts, 0);
        become(true);
        m_clock->advance(Upgrade::calmTime);
        m_program->answer(true);
        QCOMPARE(m_restarts, 1);
    }

    void aBuildThatWouldNotStartIsTriedAgain()
    {
        settle();
        m_clock->advance(Upgrade::calmTime);
        m_program->answer(false);
        QCOMPARE(m_restarts, 0);
        QVERIFY(m_upgrade->isPending());
        m_clock->advance(Upgrade::retryPause - moment);
        QCOMPARE(m_program->checks, 1);
        m_clock->advance(moment);
        m_program->answer(true);
        QCOMPARE(m_restarts, 1);
    }

private:
    void settle()
    {
        m_program->change(true);
        m_clock->advance(Upgrade::settleTime);
    }

    void become(bool isIdle)
    {
        m_isIdle = isIdle;
        m_upgrade->reconsider();
    }

    std::optional<FakeClock> m_clock;
    std::optional<FakeProgramFile> m_program;
    std::optional<Upgrade> m_upgrade;
    Subscription m_pendingChanges;
    bool m_isIdle = true;
    int m_restarts = 0;
    int m_news = 0;
};

QTEST_GUILESS_MAIN(UpgradeTest)
#include "UpgradeTest.moc"
