// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/locks/LockRules.h"

#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;
using SleepLockEffect::idleDisplay;
using SleepLockEffect::idleSleep;
using SleepLockEffect::lid;

namespace {

constexpr std::uint32_t ownUser = 1000;
constexpr std::uint32_t root = 0;
const SleepLockEffects nothing;

LogindInhibitor lock(const QString& what, std::uint32_t user = ownUser)
{
    return {.what = what.split(u':'), .who = u"somebody"_s, .why = {}, .blocks = true, .user = user, .process = 5};
}

LogindInhibitor weakLock(const QString& what, std::uint32_t user = ownUser)
{
    LogindInhibitor weak = lock(what, user);
    weak.blocks = false;
    weak.blocksWeakly = true;
    return weak;
}

LogindInhibitor delay(const QString& what)
{
    LogindInhibitor delaying = lock(what);
    delaying.blocks = false;
    return delaying;
}

/// Of GNOME, where nobody looks at logind's locks.
const LockFacts debian12{.systemdVersion = 252, .ownUser = ownUser};
const LockFacts debian13{.systemdVersion = 257, .ownUser = ownUser};
const LockFacts kde12{.systemdVersion = 252, .ownUser = ownUser, .kde = true, .hasLidDaemon = true};
const LockFacts kde13{.systemdVersion = 257, .ownUser = ownUser, .kde = true, .hasLidDaemon = true};
const LockFacts xfce12{.systemdVersion = 252, .ownUser = ownUser, .hasLidDaemon = true};
const LockFacts xfce13{.systemdVersion = 257, .ownUser = ownUser, .hasLidDaemon = true};
const LockFacts swayidle{.systemdVersion = 252, .ownUser = ownUser, .idleDaemonHeedsLogind = true};
const LockFacts idleAction{.systemdVersion = 252, .ownUser = ownUser, .logindSleepsOnIdle = true};

} // namespace

class LockRulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void aLockStandsInTheWayOfWhatItReallyStops_data()
    {
        QTest::addColumn<LogindInhibitor>("inhibitor");
        QTest::addColumn<LockFacts>("facts");
        QTest::addColumn<SleepLockEffects>("effects");
        const SleepLockEffects everySleep = SleepLockEffect::sleep | idleSleep;
        QTest::newRow("a delay") << delay(u"sleep"_s) << debian13 << nothing;
        QTest::newRow("shutdown") << lock(u"shutdown"_s, root) << debian13 << nothing;

        QTest::newRow("sleep, Debian 12") << lock(u"sleep"_s) << debian12 << nothing;
        QTest::newRow("sleep, Debian 13") << lock(u"sleep"_s) << debian13 << everySleep;
        QTest::newRow("sleep, unknown systemd") << lock(u"sleep"_s) << LockFacts{.ownUser = ownUser} << nothing;
        QTest::newRow("sleep, weak") << weakLock(u"sleep"_s) << debian13 << nothing;
        QTest::newRow("sleep, another's") << lock(u"sleep"_s, root) << debian12 << everySleep;
        QTest::newRow("sleep, another's, weak") << weakLock(u"sleep"_s, root) << debian13 << everySleep;
        QTest::newRow("sleep, XFCE 12") << lock(u"sleep"_s) << xfce12 << nothing;
        QTest::newRow("sleep, XFCE 13") << lock(u"sleep"_s) << xfce13 << (everySleep | lid);
        QTest::newRow("sleep, another's, XFCE 12") << lock(u"sleep"_s, root) << xfce12 << (everySleep | lid);
        QTest::newRow("sleep, KDE 12") << lock(u"sleep"_s) << kde12 << SleepLockEffects(idleSleep);
        QTest::newRow("sleep, weak, KDE 13") << weakLock(u"sleep"_s) << kde13 << nothing;
        QTest::newRow("sleep, logind acts") << lock(u"sleep"_s) << idleAction << SleepLockEffects(idleSleep);

        QTest::newRow("idle, GNOME") << lock(u"idle"_s) << debian13 << nothing;
        QTest::newRow("idle, XFCE") << lock(u"idle"_s) << xfce13 << nothing;
        QTest::newRow("idle, KDE") << lock(u"idle"_s) << kde12 << (idleSleep | idleDisplay);
        QTest::newRow("idle, weak, KDE") << weakLock(u"idle"_s) << kde13 << nothing;
        QTest::newRow("idle, swayidle") << lock(u"idle"_s) << swayidle << (idleSleep | idleDisplay);
        QTest::newRow("idle, logind acts") << lock(u"idle"_s) << idleAction << SleepLockEffects(idleSleep);

        QTest::newRow("lid") << lock(u"handle-lid-switch"_s) << debian12 << SleepLockEffects(lid);
        QTest::newRow("lid, beside a daemon") << lock(u"handle-lid-switch"_s) << xfce13 << nothing;
        QTest::newRow("lid and sleep") << lock(u"handle-lid-switch:sleep"_s) << debian13 << (everySleep | lid);
    }

    void aLockStandsInTheWayOfWhatItReallyStops()
    {
        QFETCH(LogindInhibitor, inhibitor);
        QFETCH(LockFacts, facts);
        QFETCH(SleepLockEffects, effects);
        QCOMPARE(LockRules::effects(inhibitor, facts), effects);
    }

    void theSessionManagersFlagsAreSuspendAndIdle()
    {
        constexpr std::uint32_t logoutSwitchUserAndMounts = 1 | 2 | 16;
        QCOMPARE(LockRules::effectsOfFlags(logoutSwitchUserAndMounts), nothing);
        QCOMPARE(LockRules::effectsOfFlags(4), SleepLockEffects(idleSleep));
        QCOMPARE(LockRules::effectsOfFlags(8), idleSleep | idleDisplay);
        QCOMPARE(LockRules::effectsOfFlags(12), idleSleep | idleDisplay);
    }
};

QTEST_GUILESS_MAIN(LockRulesTest)
#include "LockRulesTest.moc"
