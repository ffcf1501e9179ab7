// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/ServedTarvik.h"
#include "dbus/WireValue.h"
#include "support/Contracts.h"
#include "support/TestSupport.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QXmlStreamReader>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

const auto busName = QString::fromLatin1(TarvikWire::busName);
const auto objectPath = QString::fromLatin1(TarvikWire::objectPath);
const auto propertiesInterface = u"org.freedesktop.DBus.Properties"_s;
const auto settingsInterface = QString::fromLatin1(TarvikWire::settingsInterface);

QString signatureOf(const QVariant& value)
{
    return value.metaType() == QMetaType::fromType<QDBusArgument>() ? value.value<QDBusArgument>().currentSignature()
                                                                    : WireValue::signatureOf(value.metaType());
}

/// The text between the quotes.
QString quotedIn(const QString& message)
{
    return message.section(u'"', 1, 1);
}

} // namespace

class BusObjectTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void introspectionSaysWhatTheContractsSay()
    {
        const ServedTarvik tarvik;
        const QDBusMessage answer = call(u"org.freedesktop.DBus.Introspectable"_s, u"Introspect"_s);
        QXmlStreamReader xml(answer.arguments().constFirst().toString());
        Contracts introspected = readContracts(xml);
        QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
        for (const auto& standard : {"Properties"_L1, "Introspectable"_L1, "Peer"_L1})
            QCOMPARE(introspected.remove(u"org.freedesktop.DBus."_s + standard), 1);
        QCOMPARE(introspected.keys(), contractsOf(busName).keys());
        QVERIFY(introspected == contractsOf(busName));
    }

    void everyContractIsKept_data()
    {
        QTest::addColumn<QString>("interface");
        for (const QString& interface : contractsOf(busName).keys())
            QTest::newRow(qPrintable(interface)) << interface;
    }

    void everyContractIsKept()
    {
        QFETCH(QString, interface);
        const ServedTarvik tarvik;
        Contract offered;
        const QDBusMessage all = call(propertiesInterface, u"GetAll"_s, {interface});
        const auto values = qdbus_cast<QVariantMap>(all.arguments().value(0));
        for (auto it = values.begin(); it != values.end(); ++it) {
            const QDBusMessage got = call(propertiesInterface, u"Get"_s, {interface, it.key()});
            const QVariant value = got.arguments().value(0).value<QDBusVariant>().variant();
            QCOMPARE(signatureOf(value), signatureOf(it.value()));
            const QString error = set(interface, it.key(), m_oddity).errorName();
            const bool isReadOnly = error == QDBusError::errorString(QDBusError::PropertyReadOnly);
            QVERIFY2(isReadOnly || error == QDBusError::errorString(QDBusError::InvalidArgs),
                qPrintable(it.key() + u' ' + error));
            offered.properties[it.key()] = signatureOf(value) + (isReadOnly ? " read"_L1 : " readwrite"_L1);
        }
        const QDBusMessage unknown = call(interface, u"None"_s);
        QCOMPARE(unknown.errorName(), QDBusError::errorString(QDBusError::UnknownMethod));
        for (const QString& method :
            unknown.errorMessage().section(u"only: "_s, 1).chopped(1).split(u", "_s, Qt::SkipEmptyParts)) {
            const QDBusMessage answer = call(interface, method, QVariantList(qsizetype{4}, m_oddity));
            QCOMPARE(answer.errorName(), QDBusError::errorString(QDBusError::InvalidArgs));
            offered.methods[method] = quotedIn(answer.errorMessage());
        }
        const Contract contract = contractsOf(busName)[interface];
        QCOMPARE(offered.properties, contract.properties);
        QCOMPARE(offered.methods, contract.methods);
    }

    void onlyTheTypeOfThePropertyIsTaken_data()
    {
        QTest::addColumn<QString>("property");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("a text for a switch") << u"isEnabled"_s << QVariant(u"false"_s);
        QTest::newRow("a number for a switch") << u"isEnabled"_s << QVariant(0);
        QTest::newRow("a list for a switch") << u"isEnabled"_s << QVariant(QStringList{u"false"_s});
        QTest::newRow("a switch for a number") << u"batteryThreshold"_s << QVariant(true);
        QTest::newRow("a larger number") << u"batteryThreshold"_s << QVariant(qint64{50});
        QTest::newRow("a fraction") << u"batteryThreshold"_s << QVariant(50.0);
        QTest::newRow("out of range") << u"batteryThreshold"_s << QVariant(101);
    }

    void onlyTheTypeOfThePropertyIsTaken()
    {
        QFETCH(QString, property);
        QFETCH(QVariant, value);
        const ServedTarvik tarvik;
        QCOMPARE(set(settingsInterface, property, value).errorName(), QDBusError::errorString(QDBusError::InvalidArgs));
        QCOMPARE(tarvik.machine.settings->isEnabled(), true);
        QCOMPARE(tarvik.machine.settings->batteryThreshold(), 20);
        QVERIFY(tarvik.machine.store.writes.isEmpty());
    }

    void whatIsNotThereIsAnError_data()
    {
        QTest::addColumn<QString>("interface");
        QTest::addColumn<QString>("member");
        QTest::addColumn<QVariantList>("arguments");
        QTest::addColumn<QDBusError::ErrorType>("error");
        QTest::newRow("another interface")
            << u"org.example.Other"_s << u"Do"_s << QVariantList() << QDBusError::UnknownInterface;
        QTest::newRow("properties of another interface")
            << propertiesInterface << u"GetAll"_s << QVariantList{u"org.example"_s} << QDBusError::UnknownInterface;
        QTest::newRow("another property")
            << propertiesInterface << u"Get"_s << QVariantList{settingsInterface, u"colour"_s}
            << QDBusError::UnknownProperty;
        QTest::newRow("setting another property")
            << propertiesInterface << u"Set"_s
            << QVariantList{settingsInterface, u"colour"_s, QVariant::fromValue(QDBusVariant(1))}
            << QDBusError::UnknownProperty;
        QTest::newRow("another way with properties")
            << propertiesInterface << u"Drop"_s << QVariantList() << QDBusError::UnknownMethod;
        QTest::newRow("properties without arguments")
            << propertiesInterface << u"Get"_s << QVariantList() << QDBusError::InvalidArgs;
        QTest::newRow("a value that is no variant")
            << propertiesInterface << u"Set"_s << QVariantList{settingsInterface, u"isEnabled"_s, false}
            << QDBusError::InvalidArgs;
        QTest::newRow("a method of no interface")
            << QString() << u"None"_s << QVariantList() << QDBusError::UnknownMethod;
        QTest::newRow("too many arguments") << QString::fromLatin1(TarvikWire::statusInterface) << u"Quit"_s
                                            << QVariantList{1} << QDBusError::InvalidArgs;
        QTest::newRow("too few arguments") << QString::fromLatin1(TarvikWire::statusInterface) << u"SetTimedSession"_s
                                           << QVariantList() << QDBusError::InvalidArgs;
    }

    void whatIsNotThereIsAnError()
    {
        QFETCH(QString, interface);
        QFETCH(QString, member);
        QFETCH(QVariantList, arguments);
        QFETCH(QDBusError::ErrorType, error);
        const ServedTarvik tarvik;
        QCOMPARE(call(interface, member, arguments).errorName(), QDBusError::errorString(error));
        QVERIFY(tarvik.asked.isEmpty());
    }

    void aCallMayLeaveTheInterfaceOut()
    {
        const ServedTarvik tarvik;
        QCOMPARE(call({}, u"Quit"_s).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(tarvik.asked, QStringList{u"quit"_s});
    }

    void aLauncherShowsThePanel()
    {
        const ServedTarvik tarvik;
        const QVariantMap data{{u"activation-token"_s, u"token"_s}, {u"other"_s, 5}};
        const auto application = u"org.freedesktop.Application"_s;
        QCOMPARE(call(application, u"Activate"_s, {data}).type(), QDBusMessage::ReplyMessage);
        call(application, u"Open"_s, {QStringList{u"file:///a"_s}, data});
        call(application, u"ActivateAction"_s, {u"quit"_s, QVariant(QVariantList()), data});
        QCOMPARE(tarvik.asked, QStringList(3, u"activate token"_s));
    }

    void theWindowsReachLidClosedMode()
    {
        ServedTarvik tarvik;
        CoordinatedMachine& machine = tarvik.machine;
        const auto interface = QString::fromLatin1(TarvikWire::lidClosedInterface);
        machine.helper.setStatus(HelperStatus::notRegistered);
        call(interface, u"RefreshHelperStatus"_s);
        call(interface, u"InstallHelper"_s);
        machine.helper.finish();
        call(interface, u"ReinstallHelper"_s);
        QCOMPARE(machine.helper.calls, (QStringList{u"refresh"_s, u"register"_s, u"unregister"_s}));
        call(interface, u"FinishOnboarding"_s);
        QCOMPARE(machine.store.values[u"clamshellOnboardingComplete"_s], true);
        call(interface, u"Relaunch"_s);
        machine.clock.advance(std::chrono::seconds(1));
        QCOMPARE(machine.shown, QStringList{u"relaunch"_s});
    }

    void lidClosedModeIsAnnounced()
    {
        ServedTarvik tarvik;
        const auto interface = QString::fromLatin1(TarvikWire::lidClosedInterface);
        const auto isTold = [&](const QString& property) {
            return call(propertiesInterface, u"Get"_s, {interface, property})
                .arguments()
                .value(0)
                .value<QDBusVariant>()
                .variant();
        };
        QCOMPARE(isTold(u"hasLid"_s), true);
        listen();
        tarvik.machine.helper.setStatus(HelperStatus::enabled);
        QStringList expected{interface + u" helperInstalled"_s};
        QTRY_COMPARE(m_announced, expected);
        QCOMPARE(isTold(u"helperInstalled"_s), true);
        tarvik.machine.lid.setPresent(false);
        expected.append(interface + u" hasLid"_s);
        QTRY_COMPARE(m_announced, expected);
        QCOMPARE(isTold(u"hasLid"_s), false);
    }

    void oneChangeIsAnnouncedOnce()
    {
        ServedTarvik tarvik;
        listen();
        QStringList expected{u"com.morvanta.Tarvik.Status1 BatteryPercent Details HasBattery OnAC"_s};
        tarvik.machine.setPower(false, 57);
        QTRY_COMPARE(m_announced, expected);
        expected.append(u"com.morvanta.Tarvik.Settings1 notifyOnPause notifyOnToggle"_s);
        tarvik.machine.settings->setNotifyOnToggle(true);
        tarvik.machine.settings->setNotifyOnPause(!tarvik.machine.settings->notifyOnPause());
        tarvik.machine.settings->setWatchEditors(true);
        tarvik.machine.settings->setWatchEditors(false);
        QTRY_COMPARE(m_announced, expected);
        expected.append(u"com.morvanta.Tarvik.Status1 BatteryPercent Details"_s);
        tarvik.machine.setPower(false, 56);
        QTRY_COMPARE(m_announced, expected);
    }

    void anExplanationIsToldWhenAllHaveAnswered()
    {
        ServedTarvik tarvik;
        tarvik.locks.current.locks = {FakeSleepLocks::lock(u"mpv"_s, u"logind"_s, SleepLockEffect::idleSleep)};
        const auto interface = QString::fromLatin1(TarvikWire::whyInterface);
        const QVariantList text = call(interface, u"Explain"_s, {false}).arguments();
        QCOMPARE(text.size(), 2);
        QVERIFY2(
            text[0].toString().startsWith(u"mpv keeps this computer awake.\nTarvik does not keep it awake (Dozing — "
                                          u"nothing to watch).\nWhen this computer slept last is not known.\n\n"_s),
            qPrintable(text[0].toString()));
        QCOMPARE(text[1], true);
        tarvik.locks.current = {};
        const QVariantList json = call(interface, u"Explain"_s, {true}).arguments();
        QCOMPARE(QJsonDocument::fromJson(json.value(0).toString().toUtf8())[u"isRunning"], true);
        QCOMPARE(json.value(1), false);
        QCOMPARE(tarvik.locks.questions, 2);
    }

    void othersAreServedWhileAnExplanationIsUnderWay()
    {
        const ServedTarvik tarvik;
        const auto interface = QString::fromLatin1(TarvikWire::whyInterface);
        auto explain = QDBusMessage::createMethodCall(busName, objectPath, interface, u"Explain"_s);
        explain << false;
        QVERIFY(m_client.send(explain));
        QCOMPARE(call({}, u"Quit"_s).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(tarvik.asked, QStringList{u"quit"_s});
        // Nobody wants to hear it.
        QCOMPARE(tarvik.locks.questions, 0);
    }

    void aReplyThatNobodyWantsIsNotSent()
    {
        const ServedTarvik tarvik;
        auto message = QDBusMessage::createMethodCall(
            busName, objectPath, QString::fromLatin1(TarvikWire::statusInterface), u"Quit"_s);
        // QtDBus marks what is sent without a receiver for the answer.
        QVERIFY(m_client.send(message));
        QTRY_COMPARE(tarvik.asked, QStringList{u"quit"_s});
    }

public Q_SLOTS:
    void recordAnnouncement(const QString& interface, const QVariantMap& changed, const QStringList&)
    {
        m_announced.append(interface + u' ' + changed.keys().join(u' '));
    }

private:
    void listen()
    {
        m_announced.clear();
        m_isListening = m_isListening
            || m_client.connect(busName,
                objectPath,
                propertiesInterface,
                u"PropertiesChanged"_s,
                this,
                SLOT(recordAnnouncement(QString, QVariantMap, QStringList)));
        QVERIFY(m_isListening);
    }

    QDBusMessage call(const QString& interface, const QString& member, const QVariantList& arguments = {})
    {
        auto message = QDBusMessage::createMethodCall(busName, objectPath, interface, member);
        message.setArguments(arguments);
        QDBusPendingCallWatcher pending(m_client.asyncCall(message));
        // The answer comes from this very thread.
        QSignalSpy finished(&pending, &QDBusPendingCallWatcher::finished);
        finished.wait(patience);
        return pending.reply();
    }

    QDBusMessage set(const QString& interface, const QString& property, const QVariant& value)
    {
        return call(propertiesInterface, u"Set"_s, {interface, property, QVariant::fromValue(QDBusVariant(value))});
    }

    /// Of a type that no property and no method takes.
    const QVariant m_oddity = QVariant::fromValue(quint16{1});
    QStringList m_announced;
    bool m_isListening = false;
    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
};

QTEST_GUILESS_MAIN(BusObjectTest)
#include "BusObjectTest.moc"
