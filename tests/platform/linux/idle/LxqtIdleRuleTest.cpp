// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/idle/LxqtIdleRule.h"

#include "support/TestSupport.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QTime>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using enum IdleSleepAction;

namespace {

const IdleSleepRule never{.service = u"LXQt"_s, .action = nothing, .after = {}};

IdleSleepRule rule(IdleSleepAction action, std::chrono::seconds after)
{
    return {.service = u"LXQt"_s, .action = action, .after = after};
}

} // namespace

class LxqtIdleRuleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_home.emplace();
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_home->path());
    }

    void byDefaultItDoesNothing()
    {
        QCOMPARE(LxqtIdleRule::read(true), never);
        set({{u"enableIdlenessWatcher"_s, true}});
        QCOMPARE(LxqtIdleRule::read(true), never);
        set({{u"idlenessACAction"_s, 4}, {u"enableIdlenessWatcher"_s, false}});
        QCOMPARE(LxqtIdleRule::read(true), never);
    }

    void mainsAndBatteryHaveActionsAndTimesOfTheirOwn()
    {
        set({{u"enableIdlenessWatcher"_s, true},
            {u"idlenessACAction"_s, 4},
            {u"idlenessACTime"_s, QTime(0, 20, 30)},
            {u"idlenessBatteryAction"_s, 1},
            {u"idlenessBatteryTime"_s, QTime(0, 5)}});
        QCOMPARE(LxqtIdleRule::read(true), rule(suspend, 20min + 30s));
        QCOMPARE(LxqtIdleRule::read(false), rule(hibernate, 5min));
    }

    void whatAnOlderReleaseHasWrittenCounts()
    {
        set({{u"enableIdlenessWatcher"_s, true}, {u"idlenessAction"_s, 4}, {u"idlenessTimeSecs"_s, 1200}});
        QCOMPARE(LxqtIdleRule::read(true), rule(suspend, 20min));
        QCOMPARE(LxqtIdleRule::read(false), rule(suspend, 20min));
        set({{u"idlenessACAction"_s, 3}});
        QCOMPARE(LxqtIdleRule::read(true), rule(other, 20min));
    }

    void withoutATimeItIsAQuarterOfAnHour()
    {
        set({{u"enableIdlenessWatcher"_s, true}, {u"idlenessACAction"_s, 4}});
        QCOMPARE(LxqtIdleRule::read(true), rule(suspend, 15min));
    }

private:
    /// As LXQt's own configuration does.
    static void set(const QVariantMap& values)
    {
        QSettings settings(u"lxqt"_s, u"lxqt-powermanagement"_s);
        for (auto it = values.begin(); it != values.end(); ++it)
            settings.setValue(it.key(), it.value());
    }

    std::optional<QTemporaryDir> m_home;
};

QTEST_GUILESS_MAIN(LxqtIdleRuleTest)
#include "LxqtIdleRuleTest.moc"
