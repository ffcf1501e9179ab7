// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/assertions/XfceIdleSuspend.h"

#include "fakes/FakeXfce.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class XfceIdleSuspendTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void neverIsFourteenUpTo418AndZeroSince()
    {
        const QVersionNumber debian12(4, 18, 1);
        const QVersionNumber debian13(4, 20, 0);
        for (const auto& release : {debian12, debian13, QVersionNumber()}) {
            QVERIFY(!XfceIdleSuspend::suspends(std::nullopt, release));
            QVERIFY(XfceIdleSuspend::suspends(15, release));
        }
        QVERIFY(!XfceIdleSuspend::suspends(14, debian12));
        QVERIFY(XfceIdleSuspend::suspends(0, debian12));
        QVERIFY(XfceIdleSuspend::suspends(14, debian13));
        QVERIFY(!XfceIdleSuspend::suspends(0, debian13));
        QVERIFY(!XfceIdleSuspend::suspends(14, QVersionNumber()));
        QVERIFY(!XfceIdleSuspend::suspends(0, QVersionNumber()));
    }

    void theSettingIsFollowed()
    {
        FakeXfce xfce(m_services, u"4.18.1"_s);
        xfce.set(u"inactivity-on-ac"_s, 14U);
        QVERIFY(xfce.appear());
        XfceIdleSuspend setting(m_client);
        int changes = 0;
        setting.onChange = [&] { ++changes; };
        QTRY_COMPARE(xfce.answered, 3);

        xfce.set(u"inactivity-on-battery"_s, 30U);
        QTRY_VERIFY(setting.isSet());
        QCOMPARE(changes, 1);
        xfce.remove(u"inactivity-on-battery"_s);
        QTRY_VERIFY(!setting.isSet());
        QCOMPARE(changes, 2);
    }

    void anOddTypeMeansTheDefault()
    {
        FakeXfce xfce(m_services, u"4.20.0"_s);
        xfce.set(u"inactivity-on-ac"_s, u"soon"_s);
        QVERIFY(xfce.appear());
        XfceIdleSuspend setting(m_client);
        QTRY_COMPARE(xfce.answered, 3);
        QVERIFY(!setting.isSet());
        xfce.set(u"inactivity-on-ac"_s, 20);
        QTRY_VERIFY(setting.isSet());
    }

    void aMissingServiceMeansTheDefaultUntilItSpeaks()
    {
        XfceIdleSuspend setting(m_client);
        FakeXfce xfce(m_services, u"4.20.0"_s);
        QVERIFY(xfce.appear());
        QVERIFY(!setting.isSet());
        xfce.set(u"inactivity-on-battery"_s, 20U);
        QTRY_VERIFY(setting.isSet());
    }

private:
    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
};

QTEST_GUILESS_MAIN(XfceIdleSuspendTest)
#include "XfceIdleSuspendTest.moc"
