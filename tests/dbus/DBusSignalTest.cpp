// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "dbus/DBusSignal.h"

#include "support/TestSupport.h"

#include <QDBusConnectionInterface>
#include <QRegularExpression>

#include <memory>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

const auto path = u"/org/example/Bell"_s;
const auto interface = u"org.example.Bell1"_s;

} // namespace

class DBusSignalTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_heard.clear();
    }

    void onlyTheSenderIsHeard()
    {
        const DBusSignal rings(m_client, {m_services.baseService(), path, interface, u"Rung"_s, {}}, receiver());
        send(m_strangers, u"Rung"_s, u"stranger"_s);
        m_strangers.interface()->isServiceRegistered(u"org.example.None"_s);
        send(m_services, u"Rung"_s, u"friend"_s);
        QTRY_COMPARE(m_heard, QStringList{u"friend"_s});
    }

    void withoutASenderEverybodyIsHeard()
    {
        const DBusSignal rings(m_client, {{}, path, interface, u"Rung"_s, {}}, receiver());
        send(m_strangers, u"Rung"_s, u"stranger"_s);
        QTRY_COMPARE(m_heard, QStringList{u"stranger"_s});
    }

    void withoutANameEverySignalOfTheInterfaceIsHeard()
    {
        const DBusSignal rings(m_client, {m_services.baseService(), path, interface, {}, {}}, receiver());
        send(m_services, u"Rung"_s, u"one"_s);
        send(m_services, u"Broken"_s, u"two"_s);
        QTRY_COMPARE(m_heard, (QStringList{u"one"_s, u"two"_s}));
    }

    void onlyTheseArgumentsAreHeard()
    {
        const DBusSignal rings(m_client, {{}, path, interface, u"Rung"_s, {u"door"_s}}, receiver());
        send(m_services, u"Rung"_s, u"bicycle"_s);
        send(m_services, u"Rung"_s, u"door"_s);
        QTRY_COMPARE(m_heard, QStringList{u"door"_s});
    }

    void nothingIsHeardAfterTheEnd()
    {
        auto rings = std::make_unique<DBusSignal>(
            m_client, DBusSignal::Source{{}, path, interface, u"Rung"_s, {}}, receiver());
        const DBusSignal breaks(m_client, {{}, path, interface, u"Broken"_s, {}}, receiver());
        rings.reset();
        send(m_services, u"Rung"_s, u"one"_s);
        send(m_services, u"Broken"_s, u"two"_s);
        QTRY_COMPARE(m_heard, QStringList{u"two"_s});
    }

    void whoeverHearsMayEndIt()
    {
        std::unique_ptr<DBusSignal> rings;
        rings = std::make_unique<DBusSignal>(
            m_client, DBusSignal::Source{{}, path, interface, u"Rung"_s, {}}, [&](const QDBusMessage& signal) {
                rings.reset();
                m_heard.append(signal.arguments().constFirst().toString());
            });
        send(m_services, u"Rung"_s, u"one"_s);
        QTRY_COMPARE(m_heard, QStringList{u"one"_s});
    }

    void whatCannotBeListenedToIsLogged()
    {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"cannot be listened to"_s));
        const DBusSignal everything(m_client, {{}, path, {}, {}, {}}, receiver());
    }

    void withoutABusThereIsSilence()
    {
        const DBusSignal rings(QDBusConnection(u"nowhere"_s), {{}, path, interface, u"Rung"_s, {}}, receiver());
        QVERIFY(m_heard.isEmpty());
    }

private:
    std::function<void(const QDBusMessage&)> receiver()
    {
        return [this](const QDBusMessage& signal) { m_heard.append(signal.arguments().constFirst().toString()); };
    }

    void send(QDBusConnection& from, const QString& name, const QString& text)
    {
        auto signal = QDBusMessage::createSignal(path, interface, name);
        signal << text;
        QVERIFY(from.send(signal));
    }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
    QDBusConnection m_strangers = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"strangers"_s);
    QStringList m_heard;
};

QTEST_GUILESS_MAIN(DBusSignalTest)
#include "DBusSignalTest.moc"
