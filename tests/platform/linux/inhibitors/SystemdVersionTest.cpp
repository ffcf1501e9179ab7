// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/inhibitors/SystemdVersion.h"

#include "fakes/FakeDBusService.h"
#include "support/TestSupport.h"

#include <QDBusError>
#include <QDBusVariant>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class SystemdVersionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void itIsTheLeadingNumber()
    {
        QCOMPARE(SystemdVersion::parse(u"252.39-1~deb12u1"), 252);
        QCOMPARE(SystemdVersion::parse(u"257"), 257);
        QCOMPARE(SystemdVersion::parse(u"v258~rc1"), 258);
        QCOMPARE(SystemdVersion::parse(u""), 0);
        QCOMPARE(SystemdVersion::parse(u"v"), 0);
        QCOMPARE(SystemdVersion::parse(u"unknown 257"), 0);
        QCOMPARE(SystemdVersion::parse(u"99999999999999999999"), 0);
    }

    void systemdIsAskedForIt()
    {
        FakeDBusService systemd = makeSystemd();
        QDBusMessage question;
        systemd.handler = [&](const QDBusMessage& call) {
            question = call;
            return call.createReply(QVariant::fromValue(QDBusVariant(u"257.13-1~deb13u1"_s)));
        };
        QVERIFY(systemd.appear());
        QCOMPARE(answer(), std::optional(257));
        QCOMPARE(question.interface(), u"org.freedesktop.DBus.Properties"_s);
        QCOMPARE(question.member(), u"Get"_s);
        QCOMPARE(question.arguments(), (QVariantList{u"org.freedesktop.systemd1.Manager"_s, u"Version"_s}));
    }

    void withoutSystemdThereIsNone() { QCOMPARE(answer(), std::optional(0)); }

    void anAnswerThatIsNoTextIsNone_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::newRow("an error") << QVariant();
        QTest::newRow("number") << QVariant::fromValue(QDBusVariant(257U));
        QTest::newRow("no variant") << QVariant(u"257"_s);
    }

    void anAnswerThatIsNoTextIsNone()
    {
        QFETCH(QVariant, value);
        FakeDBusService systemd = makeSystemd();
        int asked = 0;
        systemd.handler = [&](const QDBusMessage& call) {
            ++asked;
            return value.isValid() ? call.createReply(value)
                                   : call.createErrorReply(QDBusError::AccessDenied, u"refused"_s);
        };
        QVERIFY(systemd.appear());
        QCOMPARE(answer(), std::optional(0));
        QCOMPARE(asked, 1);
    }

private:
    FakeDBusService makeSystemd() const
    {
        return {m_service, u"org.freedesktop.systemd1"_s, u"/org/freedesktop/systemd1"_s};
    }

    std::optional<int> answer() const
    {
        std::optional<int> version;
        const DBusCall call = SystemdVersion::ask(m_client, [&](int told) { version = told; });
        if (version || !QTest::qWaitFor([&] { return version.has_value(); }))
            return std::nullopt;
        return version;
    }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_service = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"service"_s);
};

QTEST_GUILESS_MAIN(SystemdVersionTest)
#include "SystemdVersionTest.moc"
