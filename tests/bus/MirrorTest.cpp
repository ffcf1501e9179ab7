// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/CoordinatorMirror.h"
#include "bus/ServedTarvik.h"
#include "bus/SettingsMirror.h"
#include "bus/UiWire.h"
#include "support/TestSupport.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QMetaProperty>
#include <QSignalSpy>

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

public Q_SLOTS:
    void recordAnnouncement(const QString& interface, const QVariantMap& changed, const QStringList&)
    {
        if (m_announced != nullptr && interface == QLatin1StringView(UiWire::settingsInterface))
            m_announced->append(interface + u' ' + changed.keys().join(u' '));
    }

private:
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
    QStringList* m_announced = nullptr;
};

QTEST_GUILESS_MAIN(MirrorTest)
#include "MirrorTest.moc"
