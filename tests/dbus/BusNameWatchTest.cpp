// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "dbus/BusNameWatch.h"

#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class BusNameWatchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void knowsWhatWasOwnedBefore()
    {
        QVERIFY(m_services.registerService(name));
        BusNameWatch watch(m_client, {name, other});
        QVERIFY(!watch.isKnown());
        QTRY_VERIFY(watch.isKnown());
        QVERIFY(watch.isOwned(name));
        QVERIFY(!watch.isOwned(other));
        QVERIFY(m_services.unregisterService(name));
        QTRY_VERIFY(!watch.isOwned(name));
    }

    void followsOwners()
    {
        BusNameWatch watch(m_client, {name, other});
        QStringList changes;
        watch.onOwnerChange = [&](const QString& changed) { changes.append(changed); };
        QTRY_VERIFY(watch.isKnown());
        QVERIFY(m_services.registerService(name));
        QVERIFY(m_services.registerService(u"org.example.Unwatched"_s));
        QVERIFY(m_services.registerService(other));
        QTRY_COMPARE(changes, (QStringList{name, other}));
        QVERIFY(watch.isOwned(name));
        QVERIFY(m_services.unregisterService(name));
        QVERIFY(m_services.unregisterService(other));
        QTRY_COMPARE(changes, (QStringList{name, other, name, other}));
        QVERIFY(!watch.isOwned(name));
    }

    void aNameTakenWhileTheBusIsAskedIsNotMissed()
    {
        // Which of the two the loop hears first is a matter of luck, so the luck is tried often.
        for (int round = 0; round < 100; ++round) {
            BusNameWatch watch(m_client, {name});
            QVERIFY(m_services.registerService(name));
            QTRY_VERIFY(watch.isKnown());
            QTRY_VERIFY2(watch.isOwned(name), qPrintable(u"round %1"_s.arg(round)));
            QVERIFY(m_services.unregisterService(name));
        }
    }

    void aNameGivenUpWhileTheBusIsAskedIsNotKept()
    {
        for (int round = 0; round < 100; ++round) {
            QVERIFY(m_services.registerService(name));
            BusNameWatch watch(m_client, {name});
            QVERIFY(m_services.unregisterService(name));
            QTRY_VERIFY(watch.isKnown());
            QTRY_VERIFY2(!watch.isOwned(name), qPrintable(u"round %1"_s.arg(round)));
        }
    }

    void withoutABusNothingIsOwned()
    {
        const BusNameWatch watch(QDBusConnection(u"nowhere"_s), {name});
        QVERIFY(watch.isKnown());
        QVERIFY(!watch.isOwned(name));
    }

private:
    const QString name = u"org.example.Watched"_s;
    const QString other = u"org.example.AlsoWatched"_s;
    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
};

QTEST_GUILESS_MAIN(BusNameWatchTest)
#include "BusNameWatchTest.moc"
