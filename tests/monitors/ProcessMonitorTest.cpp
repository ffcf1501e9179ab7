// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "monitors/ProcessMonitor.h"

#include "core/AgentCatalogue.h"
#include "core/AppSettings.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeProcessTable.h"
#include "fakes/FakeRunningApplications.h"
#include "fakes/FakeSettingsStore.h"
#include "support/TestSupport.h"

#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class ProcessMonitorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_store = std::make_unique<FakeSettingsStore>();
        m_settings = std::make_unique<AppSettings>(*m_store);
        m_table = std::make_unique<FakeProcessTable>();
        m_applications = std::make_unique<FakeRunningApplications>();
        m_clock = std::make_unique<FakeClock>();
        m_hooked.clear();
        m_changes = 0;
    }

    void theFirstScanFillsTheListsBeforeConstructionReturns()
    {
        m_table->output = "/usr/bin/claude\nsleep 5\n";
        m_table->answersLater = true;
        const auto monitor = makeMonitor();
        QCOMPARE(monitor->activeAgentLabels(), QStringList{u"Claude Code"_s});
        QCOMPARE(m_table->reads, 1);
    }

    void aListingThatHangsKeepsTheMonitorFromNothing()
    {
        m_settings->setWatchEditors(true);
        m_applications->running = {{{}, u"Zed"_s}};
        m_table->output = "/usr/bin/claude\n";
        m_table->answersLater = true;
        m_table->hangs = true;
        const auto monitor = makeMonitor();
        QCOMPARE(monitor->activeAgentLabels(), QStringList{u"Zed"_s});
        m_table->finish();
        QCOMPARE(monitor->activeAgentLabels(), (QStringList{u"Claude Code"_s, u"Zed"_s}));
        QCOMPARE(m_changes, 1);
    }

    void everyCommandLineAgentIsDetectedByEachOfItsNames()
    {
        const auto monitor = makeMonitor();
        for (const AgentPreset& preset : AgentCatalogue::agents()) {
            for (const QString& name : preset.processNames) {
                const QString hint = preset.pathHint.value_or(QString());
                for (const QString& line : {u"/usr/bin/"_s + name + u" run "_s + hint,
                         u"node /opt/"_s + hint + u'/' + name + u".js"_s,
                         u"python3.11 -m "_s + name.toUpper() + u' ' + hint}) {
                    QCOMPARE(labelsFor(*monitor, line), QStringList{preset.label});
                }
            }
        }
        QCOMPARE(labelsFor(*monitor, u"sleep 1"_s), QStringList());
    }

    void anAgentWithAHintNeedsTheHintInItsCommandLine()
    {
        const auto monitor = makeMonitor();
        QCOMPARE(labelsFor(*monitor, u"/usr/bin/pi"_s), QStringList());
        QCOMPARE(labelsFor(*monitor, u"node /opt/Pi-Coding-Agent/bin/pi"_s), QStringList{u"Pi"_s});
        QCOMPARE(labelsFor(*monitor, u"/usr/bin/cn\nnode /lib/ContinueDev/cn"_s), QStringList{u"Continue"_s});
    }

    void aNameThatIsOnlyMentionedDoesNotCount_data()
    {
        QTest::addColumn<QString>("line");
        QTest::newRow("shell command") << u"/bin/bash -c claude --resume"_s;
        QTest::newRow("pager") << u"less claude"_s;
        QTest::newRow("zombie") << u"[claude] <defunct>"_s;
        QTest::newRow("kernel thread") << u"[goose]"_s;
        QTest::newRow("second argument of an interpreter") << u"node server.js claude"_s;
        QTest::newRow("longer name") << u"/usr/bin/claude-helper"_s;
        QTest::newRow("our own listing") << u"/bin/ps -axww -o args="_s;
    }

    void aNameThatIsOnlyMentionedDoesNotCount()
    {
        QFETCH(QString, line);
        QCOMPARE(labelsFor(*makeMonitor(), line), QStringList());
    }

    void labelsComeInCatalogueOrderAndOnceEach()
    {
        const auto monitor = makeMonitor();
        QCOMPARE(labelsFor(*monitor, u"pdx\nplandex\ncodex\nclaude\nclaude\nnode claude"_s),
            (QStringList{u"Claude Code"_s, u"Codex"_s, u"Plandex"_s}));
    }

    void antigravityTheEditorAndAntigravityTheAgentMatchAtOnce()
    {
        m_settings->setWatchEditors(true);
        m_applications->running = {{u"antigravity"_s, u"Antigravity"_s}};
        QCOMPARE(labelsFor(*makeMonitor(), u"/opt/antigravity/bin/agy"_s),
            (QStringList{u"Antigravity CLI"_s, u"Antigravity"_s}));
    }

    void anEditorIsDetectedByItsExactNameAmongRunningApplications()
    {
        m_settings->setWatchEditors(true);
        const auto monitor = makeMonitor();
        m_applications->set({{{}, u"zed"_s}});
        QCOMPARE(monitor->activeAgentLabels(), QStringList());
        m_applications->set({{{}, u"Zed"_s}});
        QCOMPARE(monitor->activeAgentLabels(), QStringList{u"Zed"_s});
        QVERIFY2(labelsFor(*monitor, u"/usr/bin/zed"_s) == QStringList{u"Zed"_s}, "the process adds nothing");
    }

    void anEditorIsNotWatchedUnlessTheUserWantsIt()
    {
        m_applications->running = {{{}, u"Zed"_s}};
        const auto monitor = makeMonitor();
        QCOMPARE(monitor->activeAgentLabels(), QStringList());
        m_settings->setWatchEditors(true);
        m_clock->advance(ProcessMonitor::pollInterval);
        QCOMPARE(monitor->activeAgentLabels(), QStringList{u"Zed"_s});
    }

    void anAgentWhoseHookIsInstalledIsNeverReported()
    {
        m_hooked = {u"claude"_s};
        const auto monitor = makeMonitor();
        QCOMPARE(labelsFor(*monitor, u"claude\ncodex"_s), QStringList{u"Codex"_s});
        m_hooked.clear();
        monitor->scan();
        QCOMPARE(monitor->activeAgentLabels(), (QStringList{u"Claude Code"_s, u"Codex"_s}));
    }

    void chosenAppsAreListedInTheUsersOrder()
    {
        m_settings->addToAllowlist(u"org.kde.kdenlive"_s, u"Kdenlive"_s);
        m_settings->addToAllowlist(u"org.blender.Blender"_s, u"Blender"_s);
        m_settings->addToAllowlist(u"org.gimp.GIMP"_s, u"GIMP"_s);
        m_applications->running = {{u"org.gimp.GIMP"_s, {}}, {u"org.kde.kdenlive"_s, u"Kdenlive (de)"_s}};
        QCOMPARE(makeMonitor()->activeAppLabels(), (QStringList{u"Kdenlive"_s, u"GIMP"_s}));
    }

    void anApplicationWithoutAnIdentifierIsNoChosenApp()
    {
        m_settings->setAllowlist({{u""_s, u"Nameless"_s}, {u"org.gimp.GIMP"_s, u"GIMP"_s}});
        m_applications->running = {{{}, u"GIMP"_s}};
        QCOMPARE(makeMonitor()->activeAppLabels(), QStringList());
    }

    void duplicatesInTheListYieldDuplicateLabels()
    {
        m_settings->setAllowlist({{u"a"_s, u"A"_s}, {u"a"_s, u"A again"_s}});
        m_applications->running = {{u"a"_s, {}}};
        QCOMPARE(makeMonitor()->activeAppLabels(), (QStringList{u"A"_s, u"A again"_s}));
    }

    void reorderingTheChosenAppsCountsAsAChange()
    {
        m_settings->setAllowlist({{u"a"_s, u"A"_s}, {u"b"_s, u"B"_s}});
        m_applications->running = {{u"a"_s, {}}, {u"b"_s, {}}};
        const auto monitor = makeMonitor();
        m_settings->setAllowlist({{u"b"_s, u"B"_s}, {u"a"_s, u"A"_s}});
        monitor->scan();
        QCOMPARE(monitor->activeAppLabels(), (QStringList{u"B"_s, u"A"_s}));
        QCOMPARE(m_changes, 1);
    }

    void aPassWithEqualListsWritesNeitherAndStaysSilent()
    {
        m_table->output = "claude\n";
        const auto monitor = makeMonitor();
        QSignalSpy agents(monitor.get(), &ProcessMonitor::activeAgentLabelsChanged);
        QSignalSpy apps(monitor.get(), &ProcessMonitor::activeAppLabelsChanged);
        monitor->scan();
        QCOMPARE(agents.count() + apps.count() + m_changes, 0);
    }

    void aChangeOfOneListPublishesBothAndThenReportsOnce()
    {
        const auto monitor = makeMonitor();
        QStringList order;
        connect(monitor.get(), &ProcessMonitor::activeAgentLabelsChanged, this, [&] {
            order.append(u"agents "_s + QString::number(monitor->activeAgentLabels().size()));
        });
        connect(monitor.get(), &ProcessMonitor::activeAppLabelsChanged, this, [&] { order.append(u"apps"_s); });
        monitor->onChange = [&] { order.append(u"onChange"_s); };
        m_table->output = "claude\n";
        monitor->scan();
        QCOMPARE(order, (QStringList{u"agents 1"_s, u"apps"_s, u"onChange"_s}));
    }

    void aPollEveryFiveSecondsNoticesStartsAndEnds()
    {
        const auto monitor = makeMonitor();
        m_table->output = "claude\n";
        m_clock->advance(Seconds{4.9});
        QCOMPARE(monitor->activeAgentLabels(), QStringList());
        m_clock->advance(Seconds{0.1});
        QCOMPARE(monitor->activeAgentLabels(), QStringList{u"Claude Code"_s});
        m_table->output.clear();
        m_clock->advance(Seconds{5});
        QCOMPARE(monitor->activeAgentLabels(), QStringList());
        QCOMPARE(m_changes, 2);
    }

    void aPassThatIsStillRunningIsNotStartedTwice()
    {
        const auto monitor = makeMonitor();
        m_table->answersLater = true;
        m_clock->advance(Seconds{5});
        m_clock->advance(Seconds{5});
        QCOMPARE(m_table->reads, 2);
    }

    void aScanAskedForDuringAPassFollowsIt()
    {
        const auto monitor = makeMonitor();
        m_table->answersLater = true;
        monitor->scan();
        m_applications->set({});
        m_applications->set({});
        QCOMPARE(m_table->reads, 2);
        m_table->finish();
        QCOMPARE(m_table->reads, 3);
        m_table->finish();
        QCOMPARE(m_table->reads, 3);
    }

    void aListingThatFailsStillPublishesWhatTheDesktopReports()
    {
        m_settings->setWatchEditors(true);
        m_settings->addToAllowlist(u"org.gimp.GIMP"_s, u"GIMP"_s);
        m_applications->running = {{u"org.gimp.GIMP"_s, u"GIMP"_s}, {{}, u"Cursor"_s}};
        const auto monitor = makeMonitor();
        QCOMPARE(monitor->activeLabels(), (QStringList{u"Cursor"_s, u"GIMP"_s}));
    }

    void aPassWithoutSettingsChangesNothing()
    {
        m_table->output = "claude\n";
        const auto monitor = makeMonitor();
        m_settings.reset();
        m_table->output.clear();
        monitor->scan();
        m_clock->advance(Seconds{5});
        QCOMPARE(monitor->activeAgentLabels(), QStringList{u"Claude Code"_s});
        QCOMPARE(m_table->reads, 1);
    }

    void settingsThatEndDuringAPassAreNotTouched()
    {
        m_table->output = "claude\n";
        const auto monitor = makeMonitor();
        m_table->answersLater = true;
        monitor->scan();
        m_settings.reset();
        m_table->output.clear();
        m_table->finish();
        QCOMPARE(monitor->activeAgentLabels(), QStringList{u"Claude Code"_s});
    }

    void aListingThatEndsAfterTheMonitorIsIgnored()
    {
        auto monitor = makeMonitor();
        m_table->answersLater = true;
        monitor->scan();
        monitor.reset();
        m_table->finish();
        m_applications->set({{u"a"_s, u"A"_s}});
        m_clock->advance(Seconds{60});
        QCOMPARE(m_clock->pending(), 0U);
        QCOMPARE(m_table->reads, 2);
    }

private:
    std::unique_ptr<ProcessMonitor> makeMonitor()
    {
        auto monitor = std::make_unique<ProcessMonitor>(
            *m_settings, *m_table, *m_applications, *m_clock, [this] { return m_hooked; });
        monitor->onChange = [this] { ++m_changes; };
        return monitor;
    }

    QStringList labelsFor(ProcessMonitor& monitor, const QString& output)
    {
        m_table->output = output.toUtf8();
        monitor.scan();
        return monitor.activeAgentLabels();
    }

    std::unique_ptr<FakeSettingsStore> m_store;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<FakeProcessTable> m_table;
    std::unique_ptr<FakeRunningApplications> m_applications;
    std::unique_ptr<FakeClock> m_clock;
    QSet<QString> m_hooked;
    int m_changes = 0;
};

QTEST_GUILESS_MAIN(ProcessMonitorTest)
#include "ProcessMonitorTest.moc"
