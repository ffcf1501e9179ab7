// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/ClosedLidRules.h"

#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;
using Step = ClosedLidRules::Step;

namespace {

constexpr std::uint32_t ownUser = 1000;
constexpr std::uint32_t ownProcess = 77;

LogindInhibitor inhibitor(
    const QString& what, std::uint32_t user = ownUser, std::uint32_t process = 5, bool blocks = true)
{
    return {.what = what.split(u':'), .who = u"somebody"_s, .blocks = blocks, .user = user, .process = process};
}

const LogindInhibitor daemonsLock = inhibitor(u"handle-power-key:handle-lid-switch"_s);

/// KDE with its lid closed.
ClosedLidFacts withDaemon()
{
    return {.systemdVersion = 252,
        .hasLidDaemon = true,
        .inhibitors = {daemonsLock},
        .ownProcess = ownProcess,
        .ownUser = ownUser,
        .isLidClosed = true};
}

template <typename T>
ClosedLidFacts with(ClosedLidFacts facts, T ClosedLidFacts::*member, const T& value)
{
    facts.*member = value;
    return facts;
}

ClosedLidFacts with(const QList<LogindInhibitor>& inhibitors)
{
    return with(withDaemon(), &ClosedLidFacts::inhibitors, inhibitors);
}

} // namespace

class ClosedLidRulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void whereADaemonAsksForSuspendOnlyNewerLocksBindIt_data()
    {
        QTest::addColumn<ClosedLidFacts>("facts");
        QTest::addColumn<bool>("suffices");
        const ClosedLidFacts bare{.systemdVersion = 252, .ownProcess = ownProcess, .ownUser = ownUser};
        QTest::newRow("sway") << bare << true;
        QTest::newRow("sway without systemd") << with(bare, &ClosedLidFacts::systemdVersion, 0) << true;
        QTest::newRow("KDE on 252") << withDaemon() << false;
        QTest::newRow("KDE on 256") << with(withDaemon(), &ClosedLidFacts::systemdVersion, 256) << false;
        QTest::newRow("KDE on 257") << with(withDaemon(), &ClosedLidFacts::systemdVersion, 257) << true;
        QTest::newRow("KDE without systemd") << with(withDaemon(), &ClosedLidFacts::systemdVersion, 0) << false;
        QTest::newRow("KDE before it has taken the lid") << with(QList<LogindInhibitor>{}) << false;
        const ClosedLidFacts unknown = with(withDaemon(), &ClosedLidFacts::hasLidDaemon, false);
        QTest::newRow("an unknown desktop that takes the lid") << unknown << false;
        QTest::newRow("we ourselves have the lid") << with(
            unknown, &ClosedLidFacts::inhibitors, {inhibitor(u"handle-lid-switch:sleep"_s, ownUser, ownProcess)})
                                                   << true;
        QTest::newRow("root has the lid")
            << with(unknown, &ClosedLidFacts::inhibitors, {inhibitor(u"handle-lid-switch"_s, 0)}) << true;
        QTest::newRow("somebody delays") << with(
            unknown, &ClosedLidFacts::inhibitors, {inhibitor(u"handle-lid-switch"_s, ownUser, 5, false)})
                                         << true;
        QTest::newRow("GNOME with another display") << with(unknown, &ClosedLidFacts::isGnome, true) << true;
    }

    void whereADaemonAsksForSuspendOnlyNewerLocksBindIt()
    {
        QFETCH(ClosedLidFacts, facts);
        QTEST(ClosedLidRules::ownLockSuffices(facts), "suffices");
    }

    void onlyWhatADaemonMissedIsDoneForIt_data()
    {
        QTest::addColumn<ClosedLidFacts>("facts");
        QTest::addColumn<Step>("step");
        QTest::newRow("its action is unknown") << withDaemon() << Step::suspend;
        QTest::newRow("it suspends") << with(withDaemon(), &ClosedLidFacts::daemonSuspends, std::optional(true))
                                     << Step::suspend;
        QTest::newRow("it does something else")
            << with(withDaemon(), &ClosedLidFacts::daemonSuspends, std::optional(false)) << Step::nothing;
        QTest::newRow("the lid is open") << with(withDaemon(), &ClosedLidFacts::isLidClosed, false) << Step::nothing;
        QTest::newRow("another display") << with(withDaemon(), &ClosedLidFacts::isDocked, true) << Step::nothing;
        QTest::newRow("logind acts itself") << with(QList<LogindInhibitor>{}) << Step::nothing;
        QTest::newRow("GNOME, which is about to give the lid back")
            << with(withDaemon(), &ClosedLidFacts::isGnome, true) << Step::nothing;
        QTest::newRow("only our lock has the lid")
            << with(QList{inhibitor(u"handle-lid-switch:sleep"_s, ownUser, ownProcess)}) << Step::nothing;
        QTest::newRow("our lock is not gone yet")
            << with(QList{daemonsLock, inhibitor(u"handle-lid-switch:sleep"_s, ownUser, ownProcess)}) << Step::wait;
        QTest::newRow("root's lock is not gone yet")
            << with(QList{daemonsLock, inhibitor(u"handle-lid-switch:sleep"_s, 0)}) << Step::wait;
        QTest::newRow("a backup runs") << with(QList{daemonsLock, inhibitor(u"sleep:shutdown"_s, 0)}) << Step::wait;
        QTest::newRow("somebody wants to hear of sleep")
            << with(QList{daemonsLock, inhibitor(u"sleep"_s, 0, 5, false)}) << Step::suspend;
    }

    void onlyWhatADaemonMissedIsDoneForIt()
    {
        QFETCH(ClosedLidFacts, facts);
        QTEST(ClosedLidRules::afterLock(facts), "step");
    }
};

QTEST_GUILESS_MAIN(ClosedLidRulesTest)
#include "ClosedLidRulesTest.moc"
