// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/inhibitors/LogindInhibitors.h"

#include "dbus/DBusCall.h"
#include "fakes/FakeLogind.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;
using Inhibitors = std::optional<QList<LogindInhibitor>>;

class LogindInhibitorsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_logind = std::make_unique<FakeLogind>(m_service);
        QVERIFY(m_logind->appear());
    }

    void aRequestIsForABlockingInhibitorThatADescriptorHolds()
    {
        const InhibitorRequest request = LogindInhibitors::request(u"sleep:idle"_s, u"Tarvik"_s, u"Work"_s);
        QVERIFY(request.releaseMethod.isEmpty());
        auto call = QDBusMessage::createMethodCall(request.service, request.path, request.interface, u"Inhibit"_s);
        call.setArguments(request.arguments);
        QCOMPARE(answerTo(call).signature(), u"h"_s);
        const QVariantList arguments{u"sleep:idle"_s, u"Tarvik"_s, u"Work"_s, u"block"_s};
        QCOMPARE(m_logind->arguments[FakeLogind::inhibit], QList<QVariantList>{arguments});
    }

    void eachInhibitorIsListed()
    {
        m_logind->inhibitors = {{u"handle-lid-switch:sleep"_s, 1000, 5, u"Tarvik"_s},
            {u"idle"_s, 0, 4'000'000'000, u"somebody"_s, u"delay"_s},
            {u"sleep"_s, 1001, 7, QString(), u"block-weak"_s}};
        const QList<LogindInhibitor> expected{{.what = {u"handle-lid-switch"_s, u"sleep"_s},
                                                  .who = u"Tarvik"_s,
                                                  .why = u"because"_s,
                                                  .blocks = true,
                                                  .user = 1000,
                                                  .process = 5},
            {.what = {u"idle"_s}, .who = u"somebody"_s, .why = u"because"_s, .user = 0, .process = 4'000'000'000},
            {.what = {u"sleep"_s}, .who = {}, .why = u"because"_s, .blocksWeakly = true, .user = 1001, .process = 7}};
        QCOMPARE(list(), Inhibitors(expected));
    }

    void noneIsAListToo() { QCOMPARE(list(), Inhibitors(QList<LogindInhibitor>())); }

    void anErrorIsNoList()
    {
        m_logind->failWith(FakeLogind::listInhibitors, QDBusError::AccessDenied);
        QCOMPARE(list(), Inhibitors());
    }

    void anAnswerOfAnotherTypeIsNoList_data()
    {
        QTest::addColumn<QVariant>("answer");
        QTest::newRow("text") << QVariant(u"sleep"_s);
        QTest::newRow("a list of texts") << QVariant(QStringList{u"sleep"_s});
        QTest::newRow("a row alone") << QVariant::fromValue(FakeInhibitorRow{.what = u"sleep"_s});
    }

    void anAnswerOfAnotherTypeIsNoList()
    {
        QFETCH(QVariant, answer);
        m_logind->answerWith(FakeLogind::listInhibitors, answer);
        QCOMPARE(list(), Inhibitors());
        QCOMPARE(m_logind->questions, QStringList{FakeLogind::listInhibitors});
    }

private:
    QDBusMessage answerTo(const QDBusMessage& call) const
    {
        QDBusMessage answer;
        const DBusCall pending = callAsync(m_client, call, [&](const QDBusMessage& message) { answer = message; });
        if (!QTest::qWaitFor([&] { return answer.type() != QDBusMessage::InvalidMessage; }))
            qWarning("no answer");
        return answer;
    }

    Inhibitors list() const { return LogindInhibitors::listIn(answerTo(LogindInhibitors::list())); }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_service = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"service"_s);
    std::unique_ptr<FakeLogind> m_logind;
};

QTEST_GUILESS_MAIN(LogindInhibitorsTest)
#include "LogindInhibitorsTest.moc"
