// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/FreedesktopNotifications.h"

#include "fakes/FakeNotificationDaemon.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class FreedesktopNotificationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_errors.clear();
        m_answers.clear();
        m_notifications = std::make_unique<FreedesktopNotifications>(m_client, u"com.morvanta.Tarvik"_s);
    }

    void cleanup() { m_notifications.reset(); }

    void aDaemonThatAnswersGrants()
    {
        FakeNotificationDaemon daemon(m_services);
        QVERIFY(daemon.appear());
        authorize();
        QVERIFY(m_answers.isEmpty());
        QTRY_COMPARE(m_answers, QStringList{u"granted"_s});
    }

    void aPostToNobodyIsAnError()
    {
        post(u"body"_s);
        QTRY_COMPARE(m_errors.size(), 1);
        QVERIFY2(m_errors.constFirst().contains("org.freedesktop.Notifications"_L1), qPrintable(m_errors.constFirst()));
    }

    void aDaemonThatIsNotThereYetIsAskedWhenItAppears()
    {
        authorize();
        authorize();
        // The bus has said that nobody is there once it has said so to this post.
        post(u"body"_s);
        QTRY_COMPARE(m_errors.size(), 1);
        QVERIFY(m_answers.isEmpty());
        FakeNotificationDaemon daemon(m_services);
        QVERIFY(daemon.appear());
        QTRY_COMPARE(m_answers, (QStringList{u"granted"_s, u"granted"_s}));
        QCOMPARE(daemon.capabilityReads, 1);
    }

    void aDaemonThatAppearsWhileTheBusIsAskedIsNotMissed()
    {
        FakeNotificationDaemon daemon(m_services);
        authorize();
        QVERIFY(daemon.appear());
        QTRY_COMPARE(m_answers, QStringList{u"granted"_s});
    }

    void aDaemonThatAppearsAndRefusesIsAnError()
    {
        authorize();
        post(u"body"_s);
        QTRY_COMPARE(m_errors.size(), 1);
        FakeNotificationDaemon daemon(m_services);
        daemon.refuses = true;
        QVERIFY(daemon.appear());
        QTRY_COMPARE(m_answers, QStringList{u"Out of paper"_s});
    }

    void noBusIsAnError()
    {
        m_notifications = std::make_unique<FreedesktopNotifications>(QDBusConnection(u"nowhere"_s), QString());
        authorize();
        post(u"body"_s);
        QVERIFY(m_answers.isEmpty());
        QTRY_COMPARE(m_answers.size(), 1);
        QVERIFY(m_answers.constFirst() != u"granted"_s);
        QTRY_COMPARE(m_errors.size(), 1);
        QVERIFY(!m_errors.constFirst().isEmpty());
    }

    void theNotificationSaysWhoPostsItAndReplacesNone()
    {
        FakeNotificationDaemon daemon(m_services);
        QVERIFY(daemon.appear());
        post(u"Paused — on battery"_s);
        post(u"Paused — on battery"_s);
        QTRY_COMPARE(m_errors, (QStringList{QString(), QString()}));
        const QVariantList expected{u"Tarvik"_s,
            0U,
            u"com.morvanta.Tarvik"_s,
            u"Tarvik paused <now>"_s,
            u"Paused — on battery"_s,
            QStringList(),
            QVariantMap{{u"desktop-entry"_s, u"com.morvanta.Tarvik"_s}, {u"urgency"_s, QVariant::fromValue(uchar{1})}},
            -1};
        QCOMPARE(daemon.notifications, (QList<QVariantList>{expected, expected}));
        QCOMPARE(
            daemon.notifications.constFirst()[6].toMap().value(u"urgency"_s).metaType(), QMetaType::fromType<uchar>());
        QCOMPARE(daemon.capabilityReads, 1);
    }

    void theBodyIsEscapedForADaemonThatReadsMarkup_data()
    {
        QTest::addColumn<QStringList>("capabilities");
        QTest::addColumn<QString>("expected");
        QTest::newRow("markup") << QStringList{u"actions"_s, u"body"_s, u"body-markup"_s}
                                << u"Paused — battery 15% &lt; 20% &amp; &lt;b&gt;"_s;
        QTest::newRow("plain") << QStringList{u"body"_s} << u"Paused — battery 15% < 20% & <b>"_s;
        QTest::newRow("nothing") << QStringList() << u"Paused — battery 15% < 20% & <b>"_s;
    }

    void theBodyIsEscapedForADaemonThatReadsMarkup()
    {
        QFETCH(QStringList, capabilities);
        FakeNotificationDaemon daemon(m_services, capabilities);
        QVERIFY(daemon.appear());
        post(u"Paused — battery 15% < 20% & <b>"_s);
        QTRY_COMPARE(daemon.notifications.size(), 1);
        QTEST(daemon.notifications.constFirst()[4].toString(), "expected");
        QCOMPARE(daemon.notifications.constFirst()[3].toString(), u"Tarvik paused <now>"_s);
    }

    void anotherDaemonIsAskedForItsCapabilities()
    {
        {
            FakeNotificationDaemon plain(m_services);
            QVERIFY(plain.appear());
            post(u"<"_s);
            QTRY_COMPARE(m_errors.size(), 1);
            QCOMPARE(plain.notifications.constFirst()[4], u"<"_s);
        }
        FakeNotificationDaemon daemon(m_services, {u"body-markup"_s});
        QVERIFY(daemon.appear());
        authorize();
        QTRY_COMPARE(m_answers, QStringList{u"granted"_s});
        post(u"<"_s);
        QTRY_COMPARE(daemon.notifications.size(), 1);
        QCOMPARE(daemon.notifications.constFirst()[4], u"&lt;"_s);
    }

    void aDaemonReplacedWhileItIsAskedIsNotWaitedFor()
    {
        FakeNotificationDaemon slow(m_services);
        slow.isSlow = true;
        QVERIFY(slow.appear());
        post(u"<"_s);
        QTRY_COMPARE(slow.postponed(), 1);
        slow.vanish();
        FakeNotificationDaemon daemon(m_others, {u"body-markup"_s});
        QVERIFY(daemon.appear());
        QTRY_COMPARE(daemon.notifications.size(), 1);
        QCOMPARE(daemon.notifications.constFirst()[4], u"&lt;"_s);
        slow.answerNow();
        QTRY_COMPARE(m_errors, QStringList{QString()});
    }

    void postsWaitForASlowDaemonInTheirOrder()
    {
        FakeNotificationDaemon daemon(m_services);
        daemon.isSlow = true;
        QVERIFY(daemon.appear());
        post(u"first"_s);
        post(u"second"_s);
        authorize();
        QTRY_COMPARE(daemon.postponed(), 1);
        QVERIFY(m_errors.isEmpty());
        daemon.answerNow();
        QTRY_COMPARE(m_errors, (QStringList{QString(), QString()}));
        QCOMPARE(m_answers, QStringList{u"granted"_s});
        QCOMPARE(daemon.notifications.at(0)[4], u"first"_s);
        QCOMPARE(daemon.notifications.at(1)[4], u"second"_s);
        QCOMPARE(daemon.capabilityReads, 1);
    }

    void aRefusalIsTold()
    {
        FakeNotificationDaemon daemon(m_services);
        daemon.refuses = true;
        QVERIFY(daemon.appear());
        authorize();
        QTRY_COMPARE(m_answers, QStringList{u"Out of paper"_s});
        post(u"body"_s);
        QTRY_COMPARE(m_errors, QStringList{u"Out of paper"_s});
        daemon.refuses = false;
        post(u"body"_s);
        QTRY_COMPARE(m_errors.size(), 2);
        QCOMPARE(m_errors.last(), QString());
        daemon.refuses = true;
        post(u"body"_s);
        QTRY_COMPARE(m_errors.size(), 3);
        QCOMPARE(m_errors.last(), u"Out of paper"_s);
    }

    void answersToSomebodyGoneAreDropped()
    {
        FakeNotificationDaemon daemon(m_services);
        daemon.isSlow = true;
        QVERIFY(daemon.appear());
        post(u"body"_s);
        authorize();
        QTRY_COMPARE(daemon.postponed(), 1);
        m_notifications = std::make_unique<FreedesktopNotifications>(m_client, u"com.morvanta.Tarvik"_s);
        daemon.answerNow();
        authorize();
        QTRY_COMPARE(m_answers, QStringList{u"granted"_s});
        QVERIFY(m_errors.isEmpty());
        QVERIFY(daemon.notifications.isEmpty());
    }

private:
    void authorize()
    {
        m_notifications->requestAuthorization(
            [this](bool granted, const QString& error) { m_answers.append(granted ? u"granted"_s : error); });
    }

    void post(const QString& body)
    {
        m_notifications->post(
            u"id"_s, u"Tarvik paused <now>"_s, body, [this](const QString& error) { m_errors.append(error); });
    }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
    QDBusConnection m_others = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"others"_s);
    std::unique_ptr<FreedesktopNotifications> m_notifications;
    QStringList m_errors;
    QStringList m_answers;
};

QTEST_GUILESS_MAIN(FreedesktopNotificationsTest)
#include "FreedesktopNotificationsTest.moc"
