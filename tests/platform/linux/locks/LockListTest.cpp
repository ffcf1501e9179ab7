// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/locks/LockList.h"

#include "support/TestSupport.h"

#include <unistd.h>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using SleepLockEffect::idleDisplay;
using SleepLockEffect::idleSleep;

namespace {

constexpr std::uint32_t user = 1000;
constexpr std::uint32_t sessionManager = 4'000'001;
constexpr std::uint32_t daemonProcess = 4'000'002;
constexpr std::uint32_t stranger = 4'000'003;

LogindInhibitor lock(const QString& what, std::uint32_t process, const QString& who = u"somebody"_s)
{
    return {
        .what = what.split(u':'), .who = who, .why = u"because"_s, .blocks = true, .user = user, .process = process};
}

SleepLockList listOf(const LockAnswers& answers)
{
    return LockList::of(answers, ProgramLabels([](const QStringList&) { return std::nullopt; }));
}

/// "program: reason (service)" of each.
QStringList locksOf(const LockAnswers& answers)
{
    QStringList texts;
    for (const SleepLock& lock : listOf(answers).locks)
        texts.append(lock.program + u": "_s + lock.reason + u" ("_s + lock.service + u')');
    return texts;
}

LockAnswers gnome(int systemdVersion)
{
    return {.facts = {.systemdVersion = systemdVersion, .ownUser = user},
        .hasLogind = true,
        .hasSessionManager = true,
        .logind = QList{lock(u"sleep"_s, sessionManager, u"jane"_s)},
        .sessionManager
        = QList{ListedLock{.who = u"Player"_s, .why = u"music"_s, .effects = idleSleep, .isMirrored = true},
            ListedLock{.who = u"Reader"_s, .why = u"slides"_s, .effects = idleSleep | idleDisplay}},
        .sessionManagerProcess = sessionManager};
}

} // namespace

class LockListTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void aLockIsToldWithEverythingThatIsKnown()
    {
        const LockAnswers answers{.facts = {.systemdVersion = 257, .ownUser = user},
            .hasLogind = true,
            .logind = QList{lock(u"sleep:shutdown"_s, stranger)}};
        const SleepLock expected{.program = u"somebody"_s,
            .reason = u"because"_s,
            .service = u"logind"_s,
            .effects = SleepLockEffect::sleep | idleSleep,
            .process = stranger,
            .isOurs = false};
        QCOMPARE(listOf(answers).locks, QList{expected});
        QCOMPARE(listOf(answers).silentServices, QStringList());
    }

    void whatDoesNotConcernSleepIsLeftOut()
    {
        LogindInhibitor delay = lock(u"sleep"_s, stranger);
        delay.blocks = false;
        QCOMPARE(locksOf({.hasLogind = true, .logind = QList{lock(u"shutdown:handle-power-key"_s, stranger), delay}}),
            QStringList());
    }

    void aLockThatNobodyGoesByIsListedWithoutEffect()
    {
        const LockAnswers answers{.hasLogind = true, .logind = QList{lock(u"idle"_s, stranger)}};
        QCOMPARE(listOf(answers).locks.size(), 1);
        QCOMPARE(listOf(answers).locks.constFirst().effects, SleepLockEffects());
    }

    void tarviksOwnAreKnownByTheirNameOrProcess()
    {
        const LockAnswers answers{.facts = {.ownUser = user},
            .hasLogind = true,
            .hasPowerManager = true,
            .logind = QList{lock(u"idle"_s, stranger),
                lock(u"sleep"_s, stranger, u"Tarvik"_s),
                lock(u"sleep"_s, static_cast<std::uint32_t>(getpid()))},
            .powerManager
            = QList{ListedLock{.who = u"Tarvik"_s, .why = {}}, ListedLock{.who = u"Player"_s, .why = {}}}};
        QList<bool> ours;
        for (const SleepLock& lock : listOf(answers).locks)
            ours.append(lock.isOurs);
        QCOMPARE(ours, (QList{false, true, true, true, false}));
    }

    void anotherUsersTarvikIsAnotherProgram()
    {
        LockAnswers answers{
            .facts = {.ownUser = user}, .hasLogind = true, .logind = QList{lock(u"sleep"_s, stranger, u"Tarvik"_s)}};
        QVERIFY(listOf(answers).locks.constFirst().isOurs);
        answers.logind->first().user = user + 1;
        QVERIFY(!listOf(answers).locks.constFirst().isOurs);
        answers.logind->first().user = 0;
        QVERIFY(listOf(answers).locks.constFirst().isOurs);
    }

    void theSessionManagersLockOfLogindIsTheOneOfItsPrograms()
    {
        QCOMPARE(locksOf(gnome(257)),
            (QStringList{u"Player: music (session manager)"_s, u"Reader: slides (session manager)"_s}));
        const QList<SleepLock> locks = listOf(gnome(257)).locks;
        QCOMPARE(locks[0].effects, SleepLockEffect::sleep | idleSleep);
        QCOMPARE(locks[1].effects, idleSleep | idleDisplay);
        QCOMPARE(listOf(gnome(252)).locks[0].effects, SleepLockEffects(idleSleep));
    }

    void ifTheSessionManagerIsSilentItsLockIsListed()
    {
        LockAnswers answers = gnome(257);
        answers.sessionManager.reset();
        QCOMPARE(listOf(answers).locks.size(), 1);
        QCOMPARE(listOf(answers).silentServices, QStringList{u"session manager"_s});
    }

    void aLockOfTheSessionManagersOwnIsListed()
    {
        LockAnswers answers = gnome(257);
        answers.sessionManager->removeFirst();
        QCOMPARE(listOf(answers).locks.size(), 2);
    }

    void whatPowerDevilHasFromLogindIsListedOnce()
    {
        const LockAnswers answers{.facts = {.systemdVersion = 252, .ownUser = user, .kde = true},
            .hasLogind = true,
            .hasPowerManager = true,
            .logind = QList{lock(u"idle"_s, stranger)},
            .powerManager = QList{ListedLock{.who = u"somebody"_s, .why = u"because"_s, .effects = idleSleep},
                ListedLock{.who = u"somebody"_s, .why = u"music"_s, .effects = idleSleep}},
            .powerManagerLabel = u"KDE power management"_s};
        QCOMPARE(locksOf(answers),
            (QStringList{u"somebody: because (logind)"_s, u"somebody: music (KDE power management)"_s}));
    }

    void theLidOfTheDesktopsDaemonIsNoLock()
    {
        const LockAnswers answers{.facts = {.systemdVersion = 252, .ownUser = user, .hasLidDaemon = true},
            .hasLogind = true,
            .logind = QList{lock(u"handle-power-key:handle-lid-switch"_s, daemonProcess),
                lock(u"handle-lid-switch"_s, stranger, u"Another"_s)},
            .lidDaemonProcesses = {daemonProcess}};
        QCOMPARE(locksOf(answers), QStringList{u"Another: because (logind)"_s});
    }

    void whoDoesNotAnswerIsNamed()
    {
        const LockAnswers answers{.hasLogind = true,
            .hasSessionManager = true,
            .hasPowerManager = true,
            .powerManagerLabel = u"XFCE power management"_s,
            .silentServices = {u"screen saver"_s}};
        QCOMPARE(listOf(answers).silentServices,
            (QStringList{u"logind"_s, u"session manager"_s, u"XFCE power management"_s, u"screen saver"_s}));
    }
};

QTEST_GUILESS_MAIN(LockListTest)
#include "LockListTest.moc"
