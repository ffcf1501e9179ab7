// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/idle/KdeIdleRule.h"

#include "support/TestSupport.h"

#include <QTemporaryDir>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using enum IdleSleepAction;

namespace {

const IdleSleepRule unknown{.service = u"Plasma"_s, .action = {}, .after = {}};
const IdleSleepRule never{.service = u"Plasma"_s, .action = nothing, .after = {}};

IdleSleepRule rule(IdleSleepAction action, std::chrono::seconds after)
{
    return {.service = u"Plasma"_s, .action = action, .after = after};
}

} // namespace

class KdeIdleRuleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_home.emplace();
        m_system.emplace();
        m_facts = {.canSuspend = true};
    }

    void plasma5HasTheTimesOfTheProfileInMilliseconds()
    {
        write(*m_home,
            u"powermanagementprofilesrc"_s,
            "[AC]\nicon=battery-charging\n\n[AC][SuspendSession]\nidleTime=900000\nsuspendThenHibernate=false\n"
            "suspendType=1\n\n[Battery][SuspendSession]\nidleTime=600000\nsuspendType=2\n\n[LowBattery][DPMSControl]\n"
            "idleTime=60000\n");
        QCOMPARE(read(5, u"AC"_s), rule(suspend, 15min));
        QCOMPARE(read(5, u"Battery"_s), rule(hibernate, 10min));
        QCOMPARE(read(5, u"LowBattery"_s), never);
    }

    void plasma5WithoutItsFileTellsNothing() { QCOMPARE(read(5, u"AC"_s), unknown); }

    void plasma6GoesByDefaultsWhereNothingIsSet()
    {
        QCOMPARE(read(6, u"AC"_s), rule(suspend, 15min));
        QCOMPARE(read(6, u"Battery"_s), rule(suspend, 10min));
        QCOMPARE(read(6, u"LowBattery"_s), rule(suspend, 5min));
        m_facts.isVirtualMachine = true;
        QCOMPARE(read(6, u"AC"_s), never);
        m_facts = {};
        QCOMPARE(read(6, u"AC"_s), never);
    }

    void plasma6HasTheTimesOfTheProfileInSeconds()
    {
        write(*m_home,
            u"powerdevilrc"_s,
            "[AC][Display]\nTurnOffDisplayIdleTimeoutSec=60\n[AC][SuspendAndShutdown]\nAutoSuspendAction=0\n"
            "[Battery][SuspendAndShutdown]\nAutoSuspendIdleTimeoutSec=120\n"
            "[LowBattery][SuspendAndShutdown]\nAutoSuspendAction=8\nAutoSuspendIdleTimeoutSec=-1\n");
        QCOMPARE(read(6, u"AC"_s), never);
        QCOMPARE(read(6, u"Battery"_s), rule(suspend, 2min));
        QCOMPARE(read(6, u"LowBattery"_s), never);
    }

    void whatTheUserHasSetGoesBeforeTheSystems()
    {
        write(*m_system,
            u"powerdevilrc"_s,
            "[AC][SuspendAndShutdown]\nAutoSuspendAction=2\nAutoSuspendIdleTimeoutSec=300\n");
        QCOMPARE(read(6, u"AC"_s), rule(hibernate, 5min));
        write(*m_home, u"powerdevilrc"_s, "[AC][SuspendAndShutdown]\nAutoSuspendIdleTimeoutSec=60\n");
        QCOMPARE(read(6, u"AC"_s), rule(hibernate, 1min));
    }

    void aFileFullOfNonsenseIsAsIfNothingWereSet()
    {
        write(*m_home,
            u"powerdevilrc"_s,
            "[AC][SuspendAndShutdown\nAutoSuspendAction=0\n[AC][SuspendAndShutdown]\nAutoSuspendAction=often\n=\n["
            "\n\xff\n");
        QCOMPARE(read(6, u"AC"_s), rule(suspend, 15min));
    }

    void whatIsNotKnownIsNotGuessed()
    {
        QCOMPARE(read(6, QString()), unknown);
        QCOMPARE(read(0, u"AC"_s), unknown);
        QCOMPARE(read(7, u"AC"_s), unknown);
    }

private:
    static void write(const QTemporaryDir& directory, const QString& name, const QByteArray& text)
    {
        QFile file(directory.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }

    IdleSleepRule read(int release, const QString& profile)
    {
        KdeIdleRule::Facts facts = m_facts;
        facts.release = release;
        facts.profile = profile;
        return KdeIdleRule::read(facts, {m_home->path(), m_system->path()});
    }

    std::optional<QTemporaryDir> m_home;
    std::optional<QTemporaryDir> m_system;
    KdeIdleRule::Facts m_facts;
};

QTEST_GUILESS_MAIN(KdeIdleRuleTest)
#include "KdeIdleRuleTest.moc"
