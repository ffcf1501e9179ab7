// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/SessionBusHookChannel.h"

#include "platform/HookWire.h"
#include "support/TestSupport.h"

#include <QDBusConnectionInterface>
#include <QDBusMetaType>

#include <memory>

using namespace Qt::StringLiterals;
using namespace Tarvik;

using Map = QMap<QString, QString>;

class SessionBusHookChannelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qDBusRegisterMetaType<Map>(); }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_received.clear();
        m_channel = std::make_unique<SessionBusHookChannel>(m_bus);
        m_listening = m_channel->announced.subscribe(
            [this](const HookChannel::Payload& payload) { m_received.append(payload); });
        QVERIFY(m_bus.isConnected());
        QVERIFY(m_sender.isConnected());
        synchronise();
    }
    void cleanup() { m_channel.reset(); }

    void anAnnouncementArrivesAsSent()
    {
        const Map payload{{u"action"_s, u"acquire"_s},
            {u"session"_s, u"claude:é—😀"_s},
            {u"tool"_s, u"claude"_s},
            {u"reason"_s, QString()}};
        send(payload);
        QTRY_COMPARE(m_received.size(), 1);
        QCOMPARE(m_received.first(), HookChannel::Payload(payload));
    }

    void announcementsArriveInOrderAndFromAnySender()
    {
        for (int number = 0; number < 200; ++number)
            send({{u"session"_s, QString::number(number)}}, number % 2 == 0 ? m_sender : m_otherSender);
        QTRY_COMPARE(m_received.size(), 200);
        QStringList even;
        for (const auto& payload : std::as_const(m_received)) {
            if (payload->value(u"session"_s).toInt() % 2 == 0)
                even.append(payload->value(u"session"_s));
        }
        for (int number = 0; number < 200; number += 2)
            QCOMPARE(even.takeFirst(), QString::number(number));
    }

    void anEmptyMapIsAPayload()
    {
        send({});
        QTRY_COMPARE(m_received.size(), 1);
        QCOMPARE(m_received.first(), HookChannel::Payload(Map()));
    }

    void whatIsNoMapOfStringsIsNoPayload_data()
    {
        QTest::addColumn<QVariantList>("arguments");
        QTest::newRow("nothing") << QVariantList();
        QTest::newRow("string") << QVariantList{u"acquire"_s};
        QTest::newRow("map of variants") << QVariantList{QVariantMap{{u"action"_s, u"acquire"_s}}};
        QTest::newRow("list of strings") << QVariantList{QStringList{u"action"_s, u"acquire"_s}};
        QTest::newRow("map and more") << QVariantList{QVariant::fromValue(Map{{u"action"_s, u"acquire"_s}}), 7};
    }
    void whatIsNoMapOfStringsIsNoPayload()
    {
        QFETCH(const QVariantList, arguments);
        sendArguments(arguments, m_sender);
        QTRY_COMPARE(m_received.size(), 1);
        QCOMPARE(m_received.first(), std::nullopt);
    }

    void sixtyFourKibibytesAreTheMost()
    {
        const auto most = qsizetype(HookWire::maximumBytes) - 6;
        send({{u"reason"_s, QString(most, u'x')}});
        send({{u"reason"_s, QString(most + 1, u'x')}});
        send({{u"reason"_s, QString(most / 2 + 1, u'é')}});
        QTRY_COMPARE(m_received.size(), 3);
        QVERIFY(m_received[0].has_value());
        QVERIFY(!m_received[1].has_value());
        QVERIFY(!m_received[2].has_value());
    }

    void tooManyEntriesAreNoPayload()
    {
        Map payload;
        for (int number = 0; number < SessionBusHookChannel::maximumEntries; ++number)
            payload.insert(QString::number(number), QString());
        send(payload);
        payload.insert(u"more"_s, QString());
        send(payload);
        QTRY_COMPARE(m_received.size(), 2);
        QVERIFY(m_received[0].has_value());
        QVERIFY(!m_received[1].has_value());
    }

    void otherSignalsAreNotHeard()
    {
        const QString path = QString::fromLatin1(HookWire::objectPath);
        const QString interface = QString::fromLatin1(HookWire::interfaceName);
        const QString name = QString::fromLatin1(HookWire::signalName);
        sendSignal(QDBusMessage::createSignal(u"/other"_s, interface, name));
        sendSignal(QDBusMessage::createSignal(path, u"other.interface"_s, name));
        sendSignal(QDBusMessage::createSignal(path, interface, u"Other"_s));
        send({{u"last"_s, u"one"_s}});
        QTRY_COMPARE(m_received.size(), 1);
        QCOMPARE(m_received.first(), HookChannel::Payload(Map{{u"last"_s, u"one"_s}}));
    }

    void withoutAListenerNothingHappens()
    {
        m_listening = {};
        send({});
        synchronise();
        QVERIFY(m_received.isEmpty());
    }

    void aDestroyedChannelHearsNothing()
    {
        m_channel.reset();
        send({});
        synchronise();
        QVERIFY(m_received.isEmpty());
    }

    void withoutABusItSaysSo()
    {
        expectLog(QtWarningMsg, u"^cannot listen for hook notifications: no session bus$"_s);
        const SessionBusHookChannel channel(QDBusConnection(u"nowhere"_s));
    }

    void aFloodIsReceivedWhole()
    {
        for (int number = 0; number < 10'000; ++number)
            send({{u"action"_s, u"acquire"_s}, {u"session"_s, QString::number(number)}});
        QTRY_COMPARE_WITH_TIMEOUT(m_received.size(), 10'000, 20'000);
    }

private:
    /// Returns when everything that was sent before has been received: the bus has passed it on before it answers the
    /// sender, and the receiver reads it before a later answer.
    void synchronise()
    {
        for (const QDBusConnection& connection : {m_sender, m_bus})
            QVERIFY(connection.interface()->isServiceRegistered(u"org.freedesktop.DBus"_s).value());
        QCoreApplication::processEvents();
    }

    static void sendSignal(const QDBusMessage& message, const QDBusConnection& sender)
    {
        QVERIFY(sender.send(message));
    }
    void sendSignal(const QDBusMessage& message) const { sendSignal(message, m_sender); }

    static void sendArguments(const QVariantList& arguments, const QDBusConnection& sender)
    {
        auto signal = QDBusMessage::createSignal(QString::fromLatin1(HookWire::objectPath),
            QString::fromLatin1(HookWire::interfaceName),
            QString::fromLatin1(HookWire::signalName));
        signal.setArguments(arguments);
        sendSignal(signal, sender);
    }

    static void send(const Map& payload, const QDBusConnection& sender)
    {
        sendArguments({QVariant::fromValue(payload)}, sender);
    }
    void send(const Map& payload) const { send(payload, m_sender); }

    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"receiver"_s);
    QDBusConnection m_sender = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"sender"_s);
    QDBusConnection m_otherSender = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"other"_s);
    QList<HookChannel::Payload> m_received;
    std::unique_ptr<SessionBusHookChannel> m_channel;
    Subscription m_listening;
};

QTEST_GUILESS_MAIN(SessionBusHookChannelTest)
#include "SessionBusHookChannelTest.moc"
