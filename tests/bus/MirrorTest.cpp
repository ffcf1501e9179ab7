// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/CoordinatorMirror.h"
#include "bus/HooksMirror.h"
#include "bus/JournalMirror.h"
#include "bus/PowerMirror.h"
#include "bus/ServedTarvik.h"
#include "bus/SettingsMirror.h"
#include "bus/ThermalMirror.h"
#include "bus/UiWire.h"
#include "bus/UpdaterMirror.h"
#include "fakes/FakeDBusService.h"
#include "support/TestSupport.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMetaProperty>
#include <QSignalSpy>

#include <algorithm>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

const auto busName = QString::fromLatin1(StatusWire::busName);
const auto objectPath = QString::fromLatin1(StatusWire::objectPath);

} // namespace

class MirrorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void aMirrorShowsWhatTarvikShows()
    {
        ServedTarvik tarvik;
        CoordinatorMirror coordinator(m_client);
        SettingsMirror settings(m_client);
        QVERIFY(!coordinator.isConnected());
        QTRY_VERIFY(coordinator.isConnected() && settings.isConnected());
        QCOMPARE(coordinator.isAwake(), false);
        QCOMPARE(coordinator.title(), u"Watching"_s);
        QCOMPARE(coordinator.statusReason(), tarvik.machine.coordinator->statusReason());
        QCOMPARE(coordinator.statusSubtitle(), u"Nothing running to keep awake for"_s);
        const QMetaObject& model = AppSettings::staticMetaObject;
        for (int index = model.propertyOffset(); index < model.propertyCount(); ++index) {
            const char* name = model.property(index).name();
            QVERIFY(settings.property(name).isValid());
            QCOMPARE(settings.property(name), tarvik.machine.settings->property(name));
        }
    }

    void changesArriveWithTheirSignals()
    {
        ServedTarvik tarvik;
        CoordinatorMirror coordinator(m_client);
        QTRY_VERIFY(coordinator.isConnected());
        QSignalSpy awake(&coordinator, &CoordinatorMirror::isAwakeChanged);
        QSignalSpy paused(&coordinator, &CoordinatorMirror::isPausedChanged);
        tarvik.machine.run("claude\n");
        QTRY_COMPARE(coordinator.isAwake(), true);
        QCOMPARE(coordinator.statusSubtitle(), u"Claude Code"_s);
        QCOMPARE(awake.size(), 1);
        QCOMPARE(paused.size(), 0);
    }

    void everyFieldIsSetBeforeTheFirstSignal()
    {
        ServedTarvik tarvik;
        CoordinatorMirror coordinator(m_client);
        QTRY_VERIFY(coordinator.isConnected());
        QString titleSeen;
        connect(&coordinator, &CoordinatorMirror::isAwakeChanged, this, [&] { titleSeen = coordinator.title(); });
        tarvik.machine.run("claude\n");
        QTRY_COMPARE(titleSeen, u"Awake"_s);
    }

    void changesOfOneTurnAreAnnouncedOnce()
    {
        ServedTarvik tarvik;
        QStringList announced;
        m_announced = &announced;
        QVERIFY(m_client.connect(busName,
            objectPath,
            u"org.freedesktop.DBus.Properties"_s,
            u"PropertiesChanged"_s,
            this,
            SLOT(recordAnnouncement(QString, QVariantMap, QStringList))));
        tarvik.machine.settings->setRequireAC(true);
        tarvik.machine.settings->setNotifyOnToggle(true);
        tarvik.machine.settings->setWatchEditors(true);
        tarvik.machine.settings->setWatchEditors(false);
        QTRY_COMPARE(announced, QStringList{u"com.morvanta.Tarvik.Settings1 notifyOnToggle requireAC"_s});
        m_announced = nullptr;
    }

    void aWrittenSettingShowsAtOnceAndIsStoredByTarvik()
    {
        ServedTarvik tarvik;
        SettingsMirror settings(m_client);
        QTRY_VERIFY(settings.isConnected());
        QSignalSpy changed(&settings, &SettingsMirror::isEnabledChanged);
        settings.setIsEnabled(false);
        QCOMPARE(settings.isEnabled(), false);
        QCOMPARE(changed.size(), 1);
        QTRY_COMPARE(tarvik.machine.settings->isEnabled(), false);
        settle();
        QCOMPARE(settings.isEnabled(), false);
        QCOMPARE(changed.size(), 1);
    }

    void theLastOfTwoQuickWritesHolds()
    {
        ServedTarvik tarvik;
        SettingsMirror settings(m_client);
        QTRY_VERIFY(settings.isConnected());
        QSignalSpy changed(&settings, &SettingsMirror::isEnabledChanged);
        QSignalSpy stored(&*tarvik.machine.settings, &AppSettings::isEnabledChanged);
        settings.setIsEnabled(false);
        settings.setIsEnabled(true);
        settings.setIsEnabled(false);
        QTRY_COMPARE(stored.size(), 3);
        settle();
        QCOMPARE(settings.isEnabled(), false);
        QCOMPARE(changed.size(), 3);
    }

    void aValueThatTarvikRefusesIsTakenBack_data()
    {
        QTest::addColumn<int>("percent");
        QTest::newRow("below nothing") << -1;
        QTest::newRow("more than all") << 101;
    }

    void aValueThatTarvikRefusesIsTakenBack()
    {
        QFETCH(int, percent);
        ServedTarvik tarvik;
        SettingsMirror settings(m_client);
        QTRY_VERIFY(settings.isConnected());
        expectLog(QtWarningMsg, u"^batteryThreshold was not set: A battery level is a percentage from 0 to 100\\.$"_s);
        settings.setBatteryThreshold(percent);
        QCOMPARE(settings.batteryThreshold(), percent);
        QTRY_COMPARE(settings.batteryThreshold(), 20);
        QCOMPARE(tarvik.machine.settings->batteryThreshold(), 20);
    }

    void settingsThatTakeMoreThanStoringAreHandedOn()
    {
        ServedTarvik tarvik;
        SettingsMirror settings(m_client);
        QTRY_VERIFY(settings.isConnected());
        const bool before = settings.launchAtLogin();
        settings.setLaunchAtLogin(!before);
        QTRY_COMPARE(tarvik.asked, QStringList{before ? u"login off"_s : u"login on"_s});
        // Nobody has set it, so it is taken back.
        QTRY_COMPARE(settings.launchAtLogin(), before);
        settings.setClamshellEnabled(!settings.clamshellEnabled());
        QTRY_COMPARE(tarvik.asked.size(), 2);
    }

    void aSessionIsStartedReplacedAndCancelled()
    {
        ServedTarvik tarvik;
        CoordinatorMirror coordinator(m_client);
        QTRY_VERIFY(coordinator.isConnected());
        QCOMPARE(coordinator.timedSessionEnd(), 0.0);
        coordinator.setTimedSession(10);
        QTRY_VERIFY(coordinator.isTimedSessionActive());
        QCOMPARE(coordinator.statusReason(), u"Awake — 11 min left"_s);
        QCOMPARE(
            coordinator.timedSessionEnd(), tarvik.machine.coordinator->timedSessionEnd()->time_since_epoch().count());
        coordinator.setTimedSession(60);
        QTRY_COMPARE(coordinator.statusReason(), u"Awake — 61 min left"_s);
        coordinator.setTimedSession(0);
        QTRY_VERIFY(!coordinator.isTimedSessionActive());
        QCOMPARE(coordinator.timedSessionEnd(), 0.0);
    }

    void aSessionOfMoreThanAYearIsRefused()
    {
        ServedTarvik tarvik;
        CoordinatorMirror coordinator(m_client);
        QTRY_VERIFY(coordinator.isConnected());
        expectLog(QtWarningMsg, u"^SetTimedSession failed: A timed session lasts a year at most\\.$"_s);
        QSignalSpy answered(&coordinator, &CoordinatorMirror::timedSessionEndChanged);
        coordinator.setTimedSession(std::numeric_limits<int>::max());
        coordinator.setTimedSession(1);
        QTRY_COMPARE(answered.size(), 1);
        QCOMPARE(coordinator.statusReason(), u"Awake — 2 min left"_s);
    }

    void lockAndQuitReachTarvik()
    {
        ServedTarvik tarvik;
        CoordinatorMirror coordinator(m_client);
        coordinator.lockScreen();
        coordinator.quit();
        QTRY_COMPARE(tarvik.asked, (QStringList{u"lock"_s, u"quit"_s}));
    }

    void aTarvikThatVanishesIsLostAndFoundAgain()
    {
        auto tarvik = std::make_unique<ServedTarvik>();
        CoordinatorMirror coordinator(m_client);
        QTRY_VERIFY(coordinator.isConnected());
        QSignalSpy lost(&coordinator, &PropertyMirror::lost);
        tarvik->vanish();
        QTRY_COMPARE(lost.size(), 1);
        QVERIFY(!coordinator.isConnected());
        QCOMPARE(coordinator.title(), u"Watching"_s);
        tarvik = nullptr;
        ServedTarvik again;
        again.machine.run("claude\n");
        QTRY_VERIFY(coordinator.isConnected());
        QTRY_COMPARE(coordinator.title(), u"Awake"_s);
    }

    void withoutTarvikAMirrorIsLostFromTheStart()
    {
        CoordinatorMirror coordinator(m_client);
        QSignalSpy lost(&coordinator, &PropertyMirror::lost);
        QTRY_COMPARE(lost.size(), 1);
        QVERIFY(!coordinator.isConnected());
    }

    void theAllowlistIsShownAndEdited()
    {
        ServedTarvik tarvik;
        tarvik.machine.settings->addToAllowlist(u"org.kde.kate"_s, u"Kate"_s);
        SettingsMirror settings(m_client);
        QTRY_VERIFY(settings.isConnected());
        const QVariantMap kate{{u"bundleID"_s, u"org.kde.kate"_s}, {u"name"_s, u"Kate"_s}};
        const QVariantMap gimp{{u"bundleID"_s, u"gimp"_s}, {u"name"_s, u"GIMP"_s}};
        QCOMPARE(settings.allowlist(), QVariantList{kate});
        QSignalSpy changed(&settings, &SettingsMirror::allowlistChanged);
        settings.addToAllowlist(u"gimp"_s, u"GIMP"_s);
        QTRY_COMPARE(settings.allowlist(), (QVariantList{kate, gimp}));
        QCOMPARE(changed.size(), 1);
        settings.addToAllowlist(u"gimp"_s, u"Another name"_s);
        settings.removeFromAllowlist(u"not there"_s);
        settings.removeFromAllowlist(u"org.kde.kate"_s);
        QTRY_COMPARE(settings.allowlist(), QVariantList{gimp});
        QCOMPARE(changed.size(), 2);
        QCOMPARE(tarvik.machine.settings->allowlist(), (QList<AllowlistedApp>{{u"gimp"_s, u"GIMP"_s}}));
    }

    void anApplicationWithoutIdIsRefused()
    {
        ServedTarvik tarvik;
        SettingsMirror settings(m_client);
        expectLog(QtWarningMsg, u"^AddToAllowlist failed: An application has an id\\.$"_s);
        settings.addToAllowlist({}, u"Nothing"_s);
        settle();
        QVERIFY(tarvik.machine.settings->allowlist().isEmpty());
    }

    void powerIsShownAndFollowed()
    {
        ServedTarvik tarvik;
        PowerMirror power(m_client);
        QCOMPARE(power.batteryPercent(), QVariant());
        QTRY_VERIFY(power.isConnected());
        QVERIFY(power.isOnAC() && !power.hasBattery() && !power.lidClosed());
        QCOMPARE(power.batteryPercent(), QVariant());
        QSignalSpy percent(&power, &PowerMirror::batteryPercentChanged);
        tarvik.machine.setPower(false, 57);
        tarvik.machine.setPower(false, 56);
        QTRY_COMPARE(power.batteryPercent(), QVariant(56));
        QVERIFY(!power.isOnAC() && power.hasBattery());
        // What changed twice in one turn is told once.
        QCOMPARE(percent.size(), 1);
        tarvik.machine.setPower(true, {});
        QTRY_COMPARE(power.batteryPercent(), QVariant());
        QVERIFY(power.isOnAC() && !power.hasBattery());
    }

    void theLidIsShownWhileItIsWatched()
    {
        ServedTarvik tarvik;
        PowerMirror power(m_client);
        QTRY_VERIFY(power.isConnected());
        tarvik.machine.lid.closed = true;
        // It is watched while the computer is kept awake.
        tarvik.machine.run("claude\n");
        QTRY_VERIFY(power.lidClosed());
        tarvik.machine.run({});
        QTRY_VERIFY(!power.lidClosed());
    }

    void heatIsShownInNumbersAndWords()
    {
        ServedTarvik tarvik;
        ThermalMirror thermal(m_client);
        QTRY_VERIFY(thermal.isConnected());
        QCOMPARE(thermal.state(), 0);
        QCOMPARE(thermal.stateText(), u"normal"_s);
        tarvik.machine.setHeat(ThermalLevel::critical);
        QTRY_VERIFY(thermal.isHot());
        QCOMPARE(thermal.state(), 3);
        QCOMPARE(thermal.stateText(), u"very hot"_s);
        tarvik.machine.setHeat(ThermalLevel::fair);
        QTRY_COMPARE(thermal.stateText(), u"warm"_s);
        QVERIFY(!thermal.isHot());
    }

    void theJournalIsShownNewestFirst()
    {
        ServedTarvik tarvik;
        tarvik.machine.journal->record(JournalEntry::Kind::on, u"Claude Code"_s);
        tarvik.machine.journal->record(JournalEntry::Kind::paused, u"On battery"_s);
        JournalMirror journal(m_client);
        QTRY_VERIFY(journal.isConnected());
        QCOMPARE(rows(journal, "reason"), (QStringList{u"On battery"_s, u"Claude Code"_s}));
        QCOMPARE(rows(journal, "kind"), (QStringList{u"paused"_s, u"on"_s}));
        QCOMPARE(rows(journal, "iconName"), (QStringList{u"pause.circle"_s, u"bolt.fill"_s}));
        QCOMPARE(rows(journal, "iconColor"), (QStringList{u"orange"_s, u"secondary"_s}));
        const QVariant at = journal.entries()->index(0, 0).data(role(journal, "at"));
        QCOMPARE(at.toDateTime().toSecsSinceEpoch(), 1'700'000'000);
        QCOMPARE(rows(journal, "entryId").constFirst(),
            tarvik.machine.journal->entries().constFirst().id.toString(QUuid::WithoutBraces));
    }

    void aRecordedEntryComesInAtTheFront()
    {
        ServedTarvik tarvik;
        for (int number = 0; number < 200; ++number)
            tarvik.machine.journal->record(JournalEntry::Kind::off, QString::number(number));
        JournalMirror journal(m_client);
        QTRY_VERIFY(journal.isConnected());
        QSignalSpy inserted(journal.entries(), &QAbstractItemModel::rowsInserted);
        QSignalSpy removed(journal.entries(), &QAbstractItemModel::rowsRemoved);
        QSignalSpy reset(journal.entries(), &QAbstractItemModel::modelReset);
        QSignalSpy changed(&journal, &JournalMirror::entriesChanged);
        tarvik.machine.journal->record(JournalEntry::Kind::resumed, u"first"_s);
        tarvik.machine.journal->record(JournalEntry::Kind::off, u"second"_s);
        QTRY_COMPARE(inserted.size(), 1);
        QCOMPARE(inserted[0].mid(1), (QVariantList{0, 1}));
        QCOMPARE(removed.size(), 1);
        QCOMPARE(removed[0].mid(1), (QVariantList{198, 199}));
        QCOMPARE(reset.size(), 0);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(rows(journal, "reason").mid(0, 3), (QStringList{u"second"_s, u"first"_s, u"199"_s}));
        QCOMPARE(journal.entries()->rowCount(), 200);
    }

    void theJournalIsClearedAndExported()
    {
        ServedTarvik tarvik;
        tarvik.machine.journal->record(JournalEntry::Kind::paused, u"On battery"_s);
        JournalMirror journal(m_client);
        QTRY_VERIFY(journal.isConnected());
        QSignalSpy exported(&journal, &JournalMirror::exported);
        journal.exportText();
        QTRY_COMPARE(exported.size(), 1);
        QCOMPARE(exported[0][0].toString(), u"2023-11-14T22:13:20Z  Paused: On battery"_s);
        journal.clear();
        QTRY_COMPARE(journal.entries()->rowCount(), 0);
        QVERIFY(tarvik.machine.journal->entries().isEmpty());
    }

    void hooksAreInstalledAndRemoved()
    {
        ServedTarvik tarvik;
        HooksMirror hooks(m_client);
        QTRY_VERIFY(hooks.isConnected());
        QCOMPARE(hooks.installedIds(), QStringList());
        QSignalSpy changed(&hooks, &HooksMirror::changed);
        hooks.install(u"copilot"_s);
        QTRY_COMPARE(changed.size(), 1);
        QCOMPARE(changed[0], (QVariantList{u"copilot"_s, true}));
        QTRY_COMPARE(hooks.installedIds(), QStringList{u"copilot"_s});
        QVERIFY(QFile::exists(tarvik.machine.home.filePath(u".copilot/hooks/tarvik.json"_s)));
        hooks.uninstall(u"copilot"_s);
        QTRY_COMPARE(hooks.installedIds(), QStringList());
        QCOMPARE(changed.last(), (QVariantList{u"copilot"_s, true}));
    }

    void hooksOfAFileThatCannotBeReadAreRefusedUntilItIsMended()
    {
        ServedTarvik tarvik;
        HooksMirror hooks(m_client);
        QTRY_VERIFY(hooks.isConnected());
        QDir(tarvik.machine.home.path()).mkdir(u".claude"_s);
        const QString path = tarvik.machine.home.filePath(u".claude/settings.json"_s);
        QVERIFY(writeFile(path, "{ broken"));
        QSignalSpy changed(&hooks, &HooksMirror::changed);
        // For the installation, and whenever the ids are read again.
        for (int reading = 0; reading < 2; ++reading)
            expectLog(QtCriticalMsg, u"^hook config at settings.json is not valid JSON; refusing to touch it$"_s);
        hooks.install(u"claude"_s);
        QTRY_COMPARE(changed.size(), 1);
        QCOMPARE(changed[0], (QVariantList{u"claude"_s, false}));
        settle();
        QCOMPARE(hooks.installedIds(), QStringList());
        QVERIFY(writeFile(path, "{}"));
        hooks.install(u"claude"_s);
        QTRY_COMPARE(hooks.installedIds(), QStringList{u"claude"_s});
        QCOMPARE(changed.last(), (QVariantList{u"claude"_s, true}));
    }

    void hooksThatOthersRemovedAreSeenWhenTheListIsRefreshed()
    {
        ServedTarvik tarvik;
        HooksMirror hooks(m_client);
        hooks.install(u"codex"_s);
        QTRY_COMPARE(hooks.installedIds(), QStringList{u"codex"_s});
        QVERIFY(QFile::remove(tarvik.machine.home.filePath(u".codex/hooks.json"_s)));
        hooks.refresh();
        QTRY_COMPARE(hooks.installedIds(), QStringList());
    }

    void hooksOfAnUnknownAgentFail()
    {
        ServedTarvik tarvik;
        HooksMirror hooks(m_client);
        QSignalSpy changed(&hooks, &HooksMirror::changed);
        expectLog(QtWarningMsg, u"^Install failed: There are no hooks for an agent \"nobody\"\\.$"_s);
        hooks.install(u"nobody"_s);
        QTRY_COMPARE(changed.size(), 1);
        QCOMPARE(changed[0], (QVariantList{u"nobody"_s, false}));
        settle();
    }

    void theAgentsAreListedInTheirOrder()
    {
        const HooksMirror hooks(m_client);
        QCOMPARE(hooks.agents().size(), 6);
        const QVariantMap first = hooks.agents().constFirst().toMap();
        QCOMPARE(first[u"id"_s], u"claude"_s);
        QCOMPARE(first[u"label"_s], u"Claude Code"_s);
        QCOMPARE(first[u"configPath"_s], u".claude/settings.json"_s);
    }

    void theUpdaterIsShownAndUsed()
    {
        ServedTarvik tarvik;
        UpdaterMirror updater(m_client);
        QTRY_VERIFY(updater.isConnected());
        QCOMPARE(updater.lastUpdateCheckDate(), QVariant());
        QVERIFY(!updater.canCheckForUpdates());
        QTRY_COMPARE(tarvik.updateDriver.preparations, 1);
        tarvik.updateDriver.becomeAvailable();
        QTRY_VERIFY(updater.canCheckForUpdates());
        updater.setAutomaticallyDownloadsUpdates(true);
        updater.setAutomaticallyChecksForUpdates(true);
        updater.checkForUpdates();
        QTRY_COMPARE(tarvik.updateDriver.started.size(), 1);
        QVERIFY(tarvik.updater->automaticallyChecksForUpdates() && tarvik.updater->automaticallyDownloadsUpdates());
        QTRY_VERIFY(!updater.canCheckForUpdates());
        tarvik.updateDriver.finish(true);
        QTRY_VERIFY(updater.canCheckForUpdates());
        QCOMPARE(updater.lastUpdateCheckDate().toDateTime().toSecsSinceEpoch(), 1'700'000'000);
    }

    void everyMirrorSurvivesTarvik()
    {
        const auto tarvik = std::make_unique<ServedTarvik>();
        std::vector<std::unique_ptr<PropertyMirror>> mirrors = everyMirror();
        const auto areAll = [&](bool connected) {
            return std::ranges::all_of(
                mirrors, [connected](const auto& mirror) { return mirror->isConnected() == connected; });
        };
        QTRY_VERIFY(areAll(true));
        // The one thing that a mirror asks for by itself.
        QTRY_COMPARE(tarvik->updateDriver.preparations, 1);
        tarvik->vanish();
        QTRY_VERIFY(areAll(false));
        tarvik->appear();
        QTRY_VERIFY(areAll(true));
    }

    void garbageIsLoggedAndChangesNothing()
    {
        FakeDBusService service(m_server, busName, objectPath);
        QVariantMap values;
        service.handler = [&](const QDBusMessage& call) { return call.createReply(QVariant(values)); };
        values = {{u"isOnAC"_s, u"true"_s}, {u"batteryPercent"_s, 12.5}, {u"hasBattery"_s, true}, {u"colour"_s, 3}};
        QVERIFY(service.appear());
        PowerMirror power(m_client);
        expectLog(QtWarningMsg, u"^Tarvik sent batteryPercent as double$"_s);
        expectLog(QtWarningMsg, u"^Tarvik sent isOnAC as QString$"_s);
        QTRY_VERIFY(power.isConnected());
        QCOMPARE(power.isOnAC(), true);
        QCOMPARE(power.batteryPercent(), QVariant());
        QCOMPARE(power.hasBattery(), true);
        expectLog(QtWarningMsg, u"^Tarvik sent hasBattery as int$"_s);
        announce(service, UiWire::powerInterface, {{u"hasBattery"_s, 1}, {u"batteryPercent"_s, 99}});
        QTRY_COMPARE(power.batteryPercent(), QVariant(99));
        QCOMPARE(power.hasBattery(), true);
        // Signals that do not even have the right arguments.
        service.emitSignal(u"org.freedesktop.DBus.Properties"_s,
            u"PropertiesChanged"_s,
            {QString::fromLatin1(UiWire::powerInterface), 5});
        announce(service, UiWire::powerInterface, {{u"batteryPercent"_s, 98}});
        QTRY_COMPARE(power.batteryPercent(), QVariant(98));
    }

    void listsOfAnotherKindAreLoggedAndChangeNothing()
    {
        FakeDBusService service(m_server, busName, objectPath);
        QVariantMap values{{u"entries"_s, QStringList{u"text"_s}}};
        service.handler = [&](const QDBusMessage& call) { return call.createReply(QVariant(values)); };
        QVERIFY(service.appear());
        expectLog(QtWarningMsg, u"^Tarvik sent entries as QStringList$"_s);
        JournalMirror journal(m_client);
        QTRY_VERIFY(journal.isConnected());
        QCOMPARE(journal.entries()->rowCount(), 0);
        values[u"entries"_s] = QVariant::fromValue(QList<AllowlistedApp>{{u"a"_s, u"b"_s}});
        expectLog(QtWarningMsg, u"^Tarvik sent entries as QDBusArgument$"_s);
        announce(service, UiWire::journalInterface, {}, {u"entries"_s});
        settle();
        QCOMPARE(journal.entries()->rowCount(), 0);
    }

    void entriesThatAreNoneAreLeftOut()
    {
        FakeDBusService service(m_server, busName, objectPath);
        const double never = std::numeric_limits<double>::quiet_NaN();
        const QList<JournalRow> entries{{u"1"_s, 1e9, u"sleeping"_s, u"of no kind"_s},
            {u"2"_s, never, u"on"_s, u"never"_s},
            {u"3"_s, 1e300, u"on"_s, u"too late"_s},
            {u"4"_s, 1e9, u"off"_s, u"good"_s}};
        service.handler = [&](const QDBusMessage& call) {
            return call.createReply(QVariant(QVariantMap{{u"entries"_s, QVariant::fromValue(entries)}}));
        };
        JournalMirror journal(m_client);
        QVERIFY(service.appear());
        expectLog(QtWarningMsg, u"^Tarvik sent 3 journal entries that are none$"_s);
        QTRY_VERIFY(journal.isConnected());
        QCOMPARE(rows(journal, "reason"), QStringList{u"good"_s});
    }

    void aHugeListIsTaken()
    {
        FakeDBusService service(m_server, busName, objectPath);
        const QList<JournalRow> entries(100'000, {u"1"_s, 1e9, u"off"_s, u"again and again"_s});
        service.handler = [&](const QDBusMessage& call) {
            return call.createReply(QVariant(QVariantMap{{u"entries"_s, QVariant::fromValue(entries)}}));
        };
        JournalMirror journal(m_client);
        QVERIFY(service.appear());
        QTRY_COMPARE(journal.entries()->rowCount(), 100'000);
    }

    void aTarvikThatDoesNotAnswerBlocksNothing()
    {
        FakeDBusService service(m_server, busName, objectPath);
        int calls = 0;
        service.handler = [&](const QDBusMessage& call) {
            ++calls;
            call.setDelayedReply(true);
            return QDBusMessage();
        };
        QVERIFY(service.appear());
        QElapsedTimer elapsed;
        elapsed.start();
        const auto mirrors = everyMirror();
        SettingsMirror settings(m_client);
        settings.setIsEnabled(true);
        QCOMPARE(settings.isEnabled(), true);
        // QtDBus would wait for an answer for 25 seconds.
        QVERIFY(elapsed.elapsed() < 2000);
        QTRY_VERIFY(calls >= 8);
        QVERIFY(!settings.isConnected());
    }

public Q_SLOTS:
    void recordAnnouncement(const QString& interface, const QVariantMap& changed, const QStringList&)
    {
        if (m_announced != nullptr && interface == QLatin1StringView(UiWire::settingsInterface))
            m_announced->append(interface + u' ' + changed.keys().join(u' '));
    }

private:
    static int role(JournalMirror& journal, const QByteArray& name) { return journal.entries()->roleNames().key(name); }

    static QStringList rows(JournalMirror& journal, const QByteArray& name)
    {
        QStringList texts;
        const QAbstractItemModel& model = *journal.entries();
        for (int row = 0; row < model.rowCount(); ++row)
            texts.append(model.index(row, 0).data(role(journal, name)).toString());
        return texts;
    }

    static bool writeFile(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }

    static void announce(FakeDBusService& service,
        const char* interface,
        const QVariantMap& changed,
        const QStringList& invalidated = {})
    {
        service.emitSignal(u"org.freedesktop.DBus.Properties"_s,
            u"PropertiesChanged"_s,
            {QString::fromLatin1(interface), changed, invalidated});
    }

    std::vector<std::unique_ptr<PropertyMirror>> everyMirror() const
    {
        std::vector<std::unique_ptr<PropertyMirror>> mirrors;
        mirrors.push_back(std::make_unique<CoordinatorMirror>(m_client));
        mirrors.push_back(std::make_unique<SettingsMirror>(m_client));
        mirrors.push_back(std::make_unique<PowerMirror>(m_client));
        mirrors.push_back(std::make_unique<ThermalMirror>(m_client));
        mirrors.push_back(std::make_unique<JournalMirror>(m_client));
        mirrors.push_back(std::make_unique<HooksMirror>(m_client));
        mirrors.push_back(std::make_unique<UpdaterMirror>(m_client));
        return mirrors;
    }

    /// Until everything has arrived that either side had to say: messages of one sender keep their order, and the
    /// announcements and the reading back take a round each.
    void settle()
    {
        for (int round = 0; round < 4; ++round) {
            QDBusPendingCallWatcher ping(m_client.asyncCall(
                QDBusMessage::createMethodCall(busName, objectPath, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s)));
            QSignalSpy finished(&ping, &QDBusPendingCallWatcher::finished);
            QVERIFY(finished.wait());
        }
    }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_server = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"other server"_s);
    QStringList* m_announced = nullptr;
};

QTEST_GUILESS_MAIN(MirrorTest)
#include "MirrorTest.moc"
