// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ExplainedMachine.h"

#include "why/WhyRules.h"
#include "why/WhyText.h"

#include <functional>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

Q_DECLARE_METATYPE(std::function<void(ExplainedMachine&)>)

namespace {

const SleepLock film = FakeSleepLocks::lock(u"Firefox"_s,
    u"session manager"_s,
    SleepLockEffect::idleSleep | SleepLockEffect::idleDisplay,
    u"Playing a film"_s,
    4711);
const SleepLock download = FakeSleepLocks::lock(u"Steam"_s, u"logind"_s, SleepLockEffect::sleep);
const IdleSleepRule gnomeSuspends{u"GNOME"_s, IdleSleepAction::suspend, 20min};
const IdleSleepRule logindDoesNothing{u"logind"_s, IdleSleepAction::nothing, {}};
const IdleSleepRule swayidle{u"swayidle"_s, {}, {}};

const auto wouldBeSuspended = u"Nothing holds this computer awake; GNOME suspends it after 20 min without activity."_s;
const auto isDozing = u"Tarvik does not keep it awake (Dozing — nothing to watch)."_s;
const auto isAtWork = u"Tarvik keeps this computer awake because work is going on: Claude Code."_s;
const auto isInVain
    = u"Tarvik wants to keep it awake, but none of its locks is known to work here: it may sleep all the same."_s;

} // namespace

/// Situations of which the true answers are known.
class WhySituationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void itIsAwakeFor_data()
    {
        QTest::addColumn<std::function<void(ExplainedMachine&)>>("happen");
        QTest::addColumn<bool>("isKeptAwake");
        QTest::addColumn<QStringList>("sentences");
        const auto situation
            = [](const char* name,
                  const std::function<void(ExplainedMachine&)>& happen,
                  bool isKeptAwake,
                  const QStringList& sentences) { QTest::newRow(name) << happen << isKeptAwake << sentences; };

        situation("an agent at work", [](auto& m) { m.play({u"work claude"_s}); }, true, {isAtWork});
        situation("two agents at work",
            [](auto& m) { m.play({u"work claude codex"_s}); },
            true,
            {u"Tarvik keeps this computer awake because work is going on: Claude Code, Codex."_s});
        situation("a timed session",
            [](auto& m) { m.machine.coordinator->setTimedSession(30); },
            true,
            {u"Tarvik keeps this computer awake for a timed session, until 22:43."_s});
        situation("a timed session until tomorrow and an agent",
            [](auto& m) {
                m.play({u"work claude"_s});
                m.machine.coordinator->setTimedSession(120);
            },
            true,
            {u"Tarvik keeps this computer awake for a timed session, until 2023-11-15 00:13, and because work is going "
             u"on: "
             u"Claude Code."_s});
        situation("an agent while another program would hold it, too",
            [](auto& m) {
                m.play({u"work claude"_s});
                m.locks.current.locks = {film};
            },
            true,
            {isAtWork, u"It would stay awake without Tarvik, too, because of Firefox."_s});
        situation("an agent with the lid closed",
            [](auto& m) {
                m.play({u"helper installed"_s,
                    u"lid open"_s,
                    u"set clamshellEnabled true"_s,
                    u"work claude"_s,
                    u"lid closed"_s,
                    u"wait 10"_s});
            },
            true,
            {isAtWork, u"Its lid is closed, and Tarvik keeps it running all the same."_s});
        situation("nobody, as Tarvik is paused on battery and GNOME suspends",
            [](auto& m) {
                m.play({u"set requireAC true"_s, u"work claude"_s, u"battery 57"_s, u"mains off"_s});
                m.idleSleep.current = {logindDoesNothing, gnomeSuspends};
            },
            false,
            {wouldBeSuspended, u"Tarvik does not keep it awake (Paused — on battery)."_s});
        situation("another program while Tarvik is off",
            [](auto& m) {
                m.play({u"set isEnabled false"_s, u"work claude"_s});
                m.locks.current.locks = {film};
            },
            true,
            {u"Firefox keeps this computer awake (Playing a film)."_s, u"Tarvik does not keep it awake (Off)."_s});
        situation("two other programs",
            [](auto& m) {
                m.locks.current.locks = {film, download, film};
            },
            true,
            {u"Other programs keep this computer awake: Firefox, Steam."_s, isDozing});
        situation("many other programs",
            [](auto& m) {
                for (const char16_t* name : {u"a", u"b", u"c", u"d", u"e", u"f"}) {
                    m.locks.current.locks.append(
                        FakeSleepLocks::lock(QString::fromUtf16(name), u"logind"_s, SleepLockEffect::idleSleep));
                }
            },
            true,
            {u"Other programs keep this computer awake: a, b, c, d +2 more."_s, isDozing});
        situation("another program that gives no reason",
            [](auto& m) { m.locks.current.locks = {download}; },
            true,
            {u"Steam keeps this computer awake."_s, isDozing});
        situation("nobody, and GNOME suspends before Plasma does",
            [](auto& m) {
                m.idleSleep.current = {{u"Plasma"_s, IdleSleepAction::suspend, 30min}, gnomeSuspends, swayidle};
            },
            false,
            {wouldBeSuspended, isDozing});
        situation("nobody, and it hibernates",
            [](auto& m) {
                m.idleSleep.current = {{u"Plasma"_s, IdleSleepAction::hibernate, 2h}};
            },
            false,
            {u"Nothing holds this computer awake; Plasma hibernates it after 2 h 0 min without activity."_s, isDozing});
        situation("nobody, and it logs out",
            [](auto& m) {
                m.idleSleep.current = {{u"GNOME"_s, IdleSleepAction::other, 90min}};
            },
            false,
            {u"Nothing holds this computer awake; GNOME shuts it down or logs out after 1 h 30 min without activity."_s,
                isDozing});
        situation("nobody, and when it is suspended is not known",
            [](auto& m) {
                m.idleSleep.current = {{u"XFCE"_s, IdleSleepAction::suspend, {}}};
            },
            false,
            {u"Nothing holds this computer awake; XFCE puts it to sleep when nobody uses it, but after how long is not known."_s,
                isDozing});
        situation("nobody, and nothing would put it to sleep",
            [](auto& m) { m.idleSleep.current = {logindDoesNothing}; },
            false,
            {u"Nothing holds this computer awake; nothing here is set to put it to sleep."_s, isDozing});
        situation("nobody, and an idle daemon does what it likes",
            [](auto& m) {
                m.idleSleep.current = {logindDoesNothing, swayidle};
            },
            false,
            {u"Nothing holds this computer awake; what swayidle would do when nobody uses it is not known."_s,
                isDozing});
        situation("nobody, and no service is known",
            [](auto&) {},
            false,
            {u"Nothing holds this computer awake; what would put it to sleep is not known."_s, isDozing});
        situation("what a service does not tell",
            [](auto& m) {
                m.locks.current.silentServices = {u"KDE power management"_s};
                m.idleSleep.current = {gnomeSuspends};
            },
            false,
            {u"Nothing that can be seen holds this computer awake; GNOME suspends it after 20 min without activity."_s,
                isDozing});
        situation("nobody, as a lock of displays alone and one without effect are none against sleep",
            [](auto& m) {
                m.locks.current.locks
                    = {FakeSleepLocks::lock(u"mpv"_s, u"screen saver"_s, SleepLockEffect::idleDisplay),
                        FakeSleepLocks::lock(u"rsync"_s, u"logind"_s, {}),
                        FakeSleepLocks::lock(u"upsd"_s, u"logind"_s, SleepLockEffect::lid)};
                m.idleSleep.current = {gnomeSuspends};
            },
            false,
            {wouldBeSuspended, isDozing});
        situation("nobody, as no service has confirmed Tarvik's hold",
            [](auto& m) {
                m.play({u"work claude"_s});
                m.machine.assertions.isConfirmed = false;
                m.idleSleep.current = {gnomeSuspends};
            },
            false,
            {wouldBeSuspended, isInVain});
        situation("nobody, as nobody on this desktop goes by Tarvik's hold",
            [](auto& m) {
                m.play({u"work claude"_s});
                m.locks.current.locks = {FakeSleepLocks::ours(u"fake"_s, {})};
                m.idleSleep.current = {gnomeSuspends};
            },
            false,
            {wouldBeSuspended, isInVain});
        situation("an agent, though nobody goes by Tarvik's hold, as nobody would put it to sleep",
            [](auto& m) {
                m.play({u"work claude"_s});
                m.locks.current.locks = {FakeSleepLocks::ours(u"fake"_s, {})};
                m.idleSleep.current = {logindDoesNothing};
            },
            true,
            {isAtWork, u"Nothing here is set to put it to sleep anyway."_s});
        situation("an agent, as one of two locks of Tarvik's at a service counts",
            [](auto& m) {
                m.play({u"work claude"_s});
                m.locks.current.locks = {
                    FakeSleepLocks::ours(u"fake"_s, {}), FakeSleepLocks::ours(u"fake"_s, SleepLockEffect::idleSleep)};
            },
            true,
            {isAtWork});
    }

    void itIsAwakeFor()
    {
        QFETCH(std::function<void(ExplainedMachine&)>, happen);
        QFETCH(bool, isKeptAwake);
        QFETCH(QStringList, sentences);
        ExplainedMachine m;
        m.machine.store.values = {{u"clamshellOnboardingComplete"_s, true}, {u"lastHelperBuild"_s, u"7"_s}};
        m.start();
        happen(m);
        const WhyReport report = m.report();
        QCOMPARE(QStringList(WhyText::awake(report)) + WhyText::remarks(report), sentences);
        QCOMPARE(WhyRules::isKeptAwake(report), isKeptAwake);
    }

    void itSlept_data()
    {
        QTest::addColumn<std::function<void(ExplainedMachine&)>>("happen");
        QTest::addColumn<QString>("sentence");
        const auto situation
            = [](const char* name, const std::function<void(ExplainedMachine&)>& happen, const QString& sentence) {
                  QTest::newRow(name) << happen << sentence;
              };

        situation(
            "when, is not known", [](auto&) {}, u"When this computer slept last is not known."_s);
        situation(
            "not at all",
            [](auto& m) { m.sleepHistory.current = QList<PastSleep>(); },
            u"This computer has not slept since it was started."_s);
        situation(
            "while Tarvik was paused",
            [](auto& m) {
                m.play({u"set requireAC true"_s, u"work claude"_s, u"battery 57"_s, u"mains off"_s, u"wait 120"_s});
                m.sleep(600s);
            },
            u"This computer last slept from 22:15 to 22:25; Tarvik was not keeping it awake (since 22:13: Paused — on "
            u"battery)."_s);
        situation(
            "while Tarvik was off",
            [](auto& m) {
                m.play({u"work claude"_s, u"wait 60"_s, u"set isEnabled false"_s, u"wait 60"_s});
                m.sleep(600s);
            },
            u"This computer last slept from 22:15 to 22:25; Tarvik was not keeping it awake (since 22:14: Off)."_s);
        situation(
            "while Tarvik had nothing to watch, into another day",
            [](auto& m) {
                m.play({u"work claude"_s, u"wait 60"_s, u"work off"_s, u"wait 60"_s});
                m.sleep(8h);
            },
            u"This computer last slept from 2023-11-14 22:15 to 06:15; Tarvik was not keeping it awake (since "
            u"2023-11-14 "
            u"22:14: Dozing — nothing to watch)."_s);
        situation(
            "while Tarvik held it",
            [](auto& m) {
                m.play({u"work claude"_s, u"wait 120"_s});
                m.sleep(600s);
            },
            u"This computer last slept from 22:15 to 22:25; Tarvik was keeping it awake (since 22:13: Awake · 1 "
            u"agent), and "
            u"what put it to sleep all the same is not known."_s);
        situation(
            "while Tarvik held it, and what came after does not count",
            [](auto& m) {
                m.play({u"work claude"_s, u"wait 120"_s});
                m.sleep(600s);
                m.play({u"work off"_s});
            },
            u"This computer last slept from 22:15 to 22:25; Tarvik was keeping it awake (since 22:13: Awake · 1 "
            u"agent), and "
            u"what put it to sleep all the same is not known."_s);
        situation(
            "when another Tarvik may have been running, or none",
            [](auto& m) {
                m.play({u"work claude"_s, u"wait 120"_s});
                m.sleep(600s);
                m.restart();
            },
            u"This computer last slept from 22:15 to 22:25; whether Tarvik was running then is not known (its last "
            u"word "
            u"before was at 22:13: Awake · 1 agent)."_s);
        situation(
            "before the journal begins",
            [](auto& m) {
                m.sleep(600s);
                m.play({u"work claude"_s});
            },
            u"This computer last slept from 22:13 to 22:23; Tarvik's journal has nothing from before that."_s);
        situation(
            "and when it woke is not known",
            [](auto& m) {
                m.sleepHistory.current = QList<PastSleep>{PastSleep{m.machine.clock.now() - 60s, {}}};
            },
            u"This computer last went to sleep at 22:12; Tarvik's journal has nothing from before that."_s);
    }

    void itSlept()
    {
        QFETCH(std::function<void(ExplainedMachine&)>, happen);
        QFETCH(QString, sentence);
        ExplainedMachine m;
        m.start();
        happen(m);
        QCOMPARE(WhyText::slept(m.report()), sentence);
    }
};

QTEST_GUILESS_MAIN(WhySituationsTest)
#include "WhySituationsTest.moc"
