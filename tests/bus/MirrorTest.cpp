// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/CoordinatorAdaptor.h"
#include "bus/CoordinatorMirror.h"
#include "bus/SettingsAdaptor.h"
#include "bus/SettingsMirror.h"
#include "bus/UiWire.h"
#include "bus/WindowsAdaptor.h"
#include "engine/CoordinatedMachine.h"
#include "platform/StatusWire.h"
#include "support/TestSupport.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QFile>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QSignalSpy>
#include <QXmlStreamReader>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

const auto busName = QString::fromLatin1(StatusWire::busName);
const auto objectPath = QString::fromLatin1(StatusWire::objectPath);

/// Tarvik's side, on a connection of its own: QtDBus short-cuts calls within one.
class Served {
public:
    Served()
    {
        machine.setPower(true, {});
        machine.start();
        coordinator = new CoordinatorAdaptor(root, *machine.coordinator, bus);
        settings = new SettingsAdaptor(root, *machine.settings, bus);
        bus.registerObject(objectPath, &root, QDBusConnection::ExportAdaptors);
        bus.registerService(busName);
    }

    ~Served() { vanish(); }

    void vanish()
    {
        bus.unregisterService(busName);
        bus.unregisterObject(objectPath);
    }

    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"server"_s);
    CoordinatedMachine machine;
    QObject root;
    CoordinatorAdaptor* coordinator = nullptr;
    SettingsAdaptor* settings = nullptr;
};

/// "name:type:access" of every property and "name(types)" of every method of a contract.
QStringList contractMembers(const QString& interface)
{
    QFile file(u"" BUS_DIRECTORY "/%1.xml"_s.arg(interface));
    if (!file.open(QIODevice::ReadOnly))
        return {u"unreadable"_s};
    QStringList members;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto attribute
            = [&](const char* name) { return xml.attributes().value(QLatin1StringView(name)).toString(); };
        if (xml.name() == "property"_L1)
            members.append(attribute("name") + u':' + attribute("type") + u':' + attribute("access"));
        else if (xml.name() == "method"_L1)
            members.append(attribute("name") + "()"_L1);
        else if (xml.name() == "arg"_L1)
            members.last().insert(members.last().size() - 1, attribute("type"));
    }
    members.sort();
    return members;
}

QString signatureOf(QMetaType type)
{
    static const QHash<int, QString> signatures{
        {QMetaType::Bool, u"b"_s}, {QMetaType::Int, u"i"_s}, {QMetaType::Double, u"d"_s}, {QMetaType::QString, u"s"_s}};
    return signatures.value(type.id());
}

QStringList servedMembers(const QMetaObject& meta)
{
    QStringList members;
    for (int index = meta.propertyOffset(); index < meta.propertyCount(); ++index) {
        const QMetaProperty property = meta.property(index);
        members.append(QString::fromLatin1(property.name()) + u':' + signatureOf(property.metaType())
            + (property.isWritable() ? ":readwrite"_L1 : ":read"_L1));
    }
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        const QMetaMethod method = meta.method(index);
        QString types;
        for (int parameter = 0; parameter < method.parameterCount(); ++parameter)
            types += signatureOf(method.parameterMetaType(parameter));
        members.append(QString::fromLatin1(method.name()) + u'(' + types + u')');
    }
    members.sort();
    return members;
}

} // namespace

class MirrorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theAdaptorsServeWhatTheContractsSay_data()
    {
        QTest::addColumn<QString>("interface");
        QTest::addColumn<const QMetaObject*>("served");
        const auto row = [](const char* interface, const QMetaObject& served) {
            QTest::newRow(interface) << QString::fromLatin1(interface) << &served;
        };
        row(UiWire::coordinatorInterface, CoordinatorAdaptor::staticMetaObject);
        row(UiWire::settingsInterface, SettingsAdaptor::staticMetaObject);
        row(UiWire::windowsInterface, WindowsAdaptor::staticMetaObject);
    }

    void theAdaptorsServeWhatTheContractsSay()
    {
        QFETCH(QString, interface);
        QFETCH(const QMetaObject*, served);
        QCOMPARE(servedMembers(*served), contractMembers(interface));
    }

    void aMirrorShowsWhatTarvikShows()
    {
        Served tarvik;
        CoordinatorMirror coordinator(m_client);
        SettingsMirror settings(m_client);
        QVERIFY(!coordinator.isConnected());
        QTRY_VERIFY(coordinator.isConnected() && settings.isConnected());
        QCOMPARE(coordinator.isAwake(), false);
        QCOMPARE(coordinator.title(), u"Watching"_s);
        QCOMPARE(coordinator.statusReason(), tarvik.machine.coordinator->statusReason());
        QCOMPARE(coordinator.statusSubtitle(), u"Nothing running to keep awake for"_s);
        for (int index = SettingsMirror::staticMetaObject.propertyOffset();
             index < SettingsMirror::staticMetaObject.propertyCount();
             ++index) {
            const char* name = SettingsMirror::staticMetaObject.property(index).name();
            QCOMPARE(settings.property(name), tarvik.machine.settings->property(name));
        }
    }

    void changesArriveWithTheirSignals()
    {
        Served tarvik;
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
        Served tarvik;
        CoordinatorMirror coordinator(m_client);
        QTRY_VERIFY(coordinator.isConnected());
        QString titleSeen;
        connect(&coordinator, &CoordinatorMirror::isAwakeChanged, this, [&] { titleSeen = coordinator.title(); });
        tarvik.machine.run("claude\n");
        QTRY_COMPARE(titleSeen, u"Awake"_s);
    }

    void changesOfOneTurnAreAnnouncedOnce()
    {
        Served tarvik;
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
        Served tarvik;
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
        Served tarvik;
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
        Served tarvik;
        SettingsMirror settings(m_client);
        QTRY_VERIFY(settings.isConnected());
        expectLog(QtWarningMsg, u"^Refused a battery threshold of %1 percent$"_s.arg(percent));
        settings.setBatteryThreshold(percent);
        QCOMPARE(settings.batteryThreshold(), percent);
        QTRY_COMPARE(settings.batteryThreshold(), 20);
        QCOMPARE(tarvik.machine.settings->batteryThreshold(), 20);
    }

    void aValueThatIsNoneOfTheTypeIsRefused()
    {
        Served tarvik;
        auto set = QDBusMessage::createMethodCall(busName, objectPath, u"org.freedesktop.DBus.Properties"_s, u"Set"_s);
        set << QString::fromLatin1(UiWire::settingsInterface) << u"isEnabled"_s
            << QVariant::fromValue(QDBusVariant(QStringList{u"nonsense"_s}));
        const auto answer = m_client.asyncCall(set);
        QTRY_VERIFY(answer.isFinished());
        QVERIFY(answer.isError());
        QCOMPARE(tarvik.machine.settings->isEnabled(), true);
    }

    void settingsThatTakeMoreThanStoringAreHandedOn()
    {
        Served tarvik;
        QStringList asked;
        tarvik.settings->onSetLaunchAtLogin = [&](bool on) { asked.append(on ? u"login on"_s : u"login off"_s); };
        tarvik.settings->onSetClamshellEnabled = [&](bool on) { asked.append(on ? u"lid on"_s : u"lid off"_s); };
        SettingsMirror settings(m_client);
        QTRY_VERIFY(settings.isConnected());
        const bool before = settings.launchAtLogin();
        settings.setLaunchAtLogin(!before);
        QTRY_COMPARE(asked, QStringList{before ? u"login off"_s : u"login on"_s});
        // Nobody has set it, so it is taken back.
        QTRY_COMPARE(settings.launchAtLogin(), before);
        settings.setClamshellEnabled(!settings.clamshellEnabled());
        QTRY_COMPARE(asked.size(), 2);
    }

    void aSessionIsStartedReplacedAndCancelled()
    {
        Served tarvik;
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
        Served tarvik;
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
        Served tarvik;
        QStringList asked;
        tarvik.coordinator->onLockScreen = [&] { asked.append(u"lock"_s); };
        tarvik.coordinator->onQuit = [&] { asked.append(u"quit"_s); };
        CoordinatorMirror coordinator(m_client);
        coordinator.lockScreen();
        coordinator.quit();
        QTRY_COMPARE(asked, (QStringList{u"lock"_s, u"quit"_s}));
    }

    void aTarvikThatVanishesIsLostAndFoundAgain()
    {
        auto tarvik = std::make_unique<Served>();
        CoordinatorMirror coordinator(m_client);
        QTRY_VERIFY(coordinator.isConnected());
        QSignalSpy lost(&coordinator, &PropertyMirror::lost);
        tarvik->vanish();
        QTRY_COMPARE(lost.size(), 1);
        QVERIFY(!coordinator.isConnected());
        QCOMPARE(coordinator.title(), u"Watching"_s);
        tarvik = nullptr;
        Served again;
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
            const auto ping = m_client.asyncCall(
                QDBusMessage::createMethodCall(busName, objectPath, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s));
            QTRY_VERIFY(ping.isFinished());
        }
    }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QStringList* m_announced = nullptr;
};

QTEST_GUILESS_MAIN(MirrorTest)
#include "MirrorTest.moc"
