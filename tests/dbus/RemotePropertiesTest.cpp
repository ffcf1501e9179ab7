// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "dbus/RemoteProperties.h"

#include "fakes/FakeDBusService.h"
#include "support/TestSupport.h"

#include <QDBusError>

#include <memory>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

const auto lampName = u"org.example.Lamp"_s;
const auto path = u"/org/example/Lamp"_s;
const auto interface = u"org.example.Lamp1"_s;

/// A service with one object whose properties a test sets.
class FakeLamp final : public FakeDBusService {
public:
    explicit FakeLamp(QDBusConnection bus)
        : FakeDBusService(std::move(bus), lampName, path)
    {
        handler = [this](const QDBusMessage& call) {
            ++questions;
            if (!answers) {
                m_postponed.append(call);
                return QDBusMessage();
            }
            return answer(call);
        };
    }

    void change(const QVariantMap& changed, const QStringList& invalidated = {}, const QString& of = interface)
    {
        values.insert(changed);
        emitSignal(u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s, {of, changed, invalidated});
    }

    void answerNow()
    {
        answers = true;
        for (const QDBusMessage& call : std::exchange(m_postponed, {}))
            m_bus.send(answer(call));
    }

    QVariantMap values{{u"Power"_s, 40U}, {u"Colour"_s, u"white"_s}};
    bool answers = true;
    bool fails = false;
    int questions = 0;

private:
    QDBusMessage answer(const QDBusMessage& call) const
    {
        if (fails || call.member() != u"GetAll"_s || call.arguments() != QVariantList{interface})
            return call.createErrorReply(QDBusError::UnknownInterface, u"no such interface"_s);
        return call.createReply(QVariant(values));
    }

    QList<QDBusMessage> m_postponed;
};

} // namespace

class RemotePropertiesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_lamp = std::make_unique<FakeLamp>(m_services);
        QVERIFY(m_lamp->appear());
        m_changes.clear();
        m_failures = 0;
    }

    void cleanup()
    {
        m_remote.reset();
        m_lamp.reset();
    }

    void everythingIsReadOnce()
    {
        follow();
        QVERIFY(!m_remote->isKnown());
        QTRY_VERIFY(m_remote->isKnown());
        QCOMPARE(m_remote->values(), m_lamp->values);
        QCOMPARE(m_changes, QList{m_lamp->values});
        QCOMPARE(m_lamp->questions, 1);
    }

    void aValueIsExactlyOfItsType()
    {
        follow();
        QTRY_VERIFY(m_remote->isKnown());
        QCOMPARE(m_remote->value<uint>(u"Power"_s), 40U);
        QCOMPARE(m_remote->value<int>(u"Power"_s), std::nullopt);
        QCOMPARE(m_remote->value<uint>(u"Weight"_s), std::nullopt);
    }

    void changesAreFollowedWithoutAQuestion()
    {
        follow();
        QTRY_VERIFY(m_remote->isKnown());
        m_lamp->change({{u"Power"_s, 60U}});
        QTRY_COMPARE(m_changes.size(), 2);
        QCOMPARE(m_changes.last(), (QVariantMap{{u"Power"_s, 60U}}));
        QCOMPARE(m_remote->values(), m_lamp->values);
        QCOMPARE(m_lamp->questions, 1);
    }

    void whatIsOnlySaidToHaveChangedIsRead()
    {
        follow();
        QTRY_VERIFY(m_remote->isKnown());
        m_lamp->values[u"Colour"_s] = u"red"_s;
        m_lamp->change({}, {u"Colour"_s});
        QTRY_COMPARE(m_remote->value<QString>(u"Colour"_s), u"red"_s);
        QCOMPARE(m_lamp->questions, 2);
    }

    void aChangeBeforeTheAnswerIsNotOverwrittenByIt()
    {
        m_lamp->answers = false;
        follow();
        QTRY_COMPARE(m_lamp->questions, 1);
        m_lamp->change({{u"Power"_s, 60U}});
        m_lamp->values[u"Power"_s] = 40U;
        m_lamp->answerNow();
        m_lamp->values[u"Power"_s] = 60U;
        QTRY_VERIFY(m_remote->isKnown());
        QCOMPARE(m_remote->value<uint>(u"Power"_s), 60U);
        for (const QVariantMap& told : std::as_const(m_changes))
            QCOMPARE(told.value(u"Power"_s), QVariant(60U));
    }

    void otherInterfacesAndStrangersAreIgnored()
    {
        follow();
        QTRY_VERIFY(m_remote->isKnown());
        m_lamp->change({}, {}, u"org.example.Other"_s);
        auto signal = QDBusMessage::createSignal(path, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s);
        signal << interface << QVariantMap{{u"Power"_s, 1U}} << QStringList();
        m_strangers.send(signal);
        m_strangers.call(QDBusMessage::createMethodCall(
            u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"GetId"_s));
        m_lamp->change({{u"Power"_s, 60U}});
        QTRY_COMPARE(m_changes.size(), 2);
        QCOMPARE(m_remote->value<uint>(u"Power"_s), 60U);
    }

    void anErrorIsToldAndTheNextSignOfLifeMendsIt()
    {
        m_lamp->fails = true;
        follow();
        QTRY_COMPARE(m_failures, 1);
        QVERIFY(!m_remote->isKnown());
        m_lamp->fails = false;
        m_lamp->change({{u"Power"_s, 60U}});
        QTRY_VERIFY(m_remote->isKnown());
        QCOMPARE(m_remote->values(), m_lamp->values);
    }

    void whoeverIsToldOfAnErrorMayEndIt()
    {
        m_lamp->fails = true;
        follow();
        m_remote->onFailure = [this](const QDBusMessage&) {
            m_remote.reset();
            ++m_failures;
        };
        QTRY_COMPARE(m_failures, 1);
    }

    void readingAnewSeesWhatWasNotAnnounced()
    {
        follow();
        QTRY_VERIFY(m_remote->isKnown());
        m_lamp->values[u"Power"_s] = 5U;
        m_remote->read();
        QCOMPARE(m_remote->value<uint>(u"Power"_s), 40U);
        QTRY_COMPARE(m_remote->value<uint>(u"Power"_s), 5U);
    }

private:
    void follow()
    {
        m_remote = std::make_unique<RemoteProperties>(
            m_client, RemoteProperties::Place{m_services.baseService(), path, interface});
        m_remote->onChange = [this](const QVariantMap& values) { m_changes.append(values); };
        m_remote->onFailure = [this](const QDBusMessage&) { ++m_failures; };
    }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
    QDBusConnection m_strangers = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"strangers"_s);
    std::unique_ptr<FakeLamp> m_lamp;
    std::unique_ptr<RemoteProperties> m_remote;
    QList<QVariantMap> m_changes;
    int m_failures = 0;
};

QTEST_GUILESS_MAIN(RemotePropertiesTest)
#include "RemotePropertiesTest.moc"
