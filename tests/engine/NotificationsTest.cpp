// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "engine/Notifications.h"

#include "fakes/FakeUserNotifications.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class NotificationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_service = {};
    }

    void everyPostHasAnIdentifierOfItsOwn()
    {
        m_notifications.post(u"Tarvik paused"_s, u"Paused — on battery"_s);
        m_notifications.post(u"Tarvik paused"_s, u"Paused — on battery"_s);
        QCOMPARE(m_service.posted.size(), 2);
        QVERIFY(m_service.posted[0].identifier != m_service.posted[1].identifier);
        QVERIFY(!m_service.posted[0].identifier.isEmpty());
        QCOMPARE(m_service.texts()[1], u"Tarvik paused: Paused — on battery"_s);
    }

    void aRefusedPermissionIsLoggedAndPostsAreStillAttempted()
    {
        m_service.granted = false;
        expectLog(QtInfoMsg, u"^Notification authorization denied$"_s);
        m_notifications.requestAuthorization();
        m_notifications.post(u"a"_s, u"b"_s);
        QCOMPARE(m_service.posted.size(), 1);
    }

    void aFailedRequestIsLoggedWithItsError()
    {
        m_service.granted = false;
        m_service.authorizationError = u"no such service"_s;
        expectLog(QtCriticalMsg, u"^Notification authorization failed: no such service$"_s);
        m_notifications.requestAuthorization();
    }

    void aGrantedPermissionIsNotLogged()
    {
        m_notifications.requestAuthorization();
        QCOMPARE(m_service.authorizationRequests, 1);
    }

    void aFailedPostIsLoggedWithItsError()
    {
        m_service.postError = u"gone"_s;
        expectLog(QtCriticalMsg, u"^Notification failed: gone$"_s);
        m_notifications.post(u"a"_s, u"b"_s);
    }

private:
    FakeUserNotifications m_service;
    Notifications m_notifications{m_service};
};

QTEST_GUILESS_MAIN(NotificationsTest)
#include "NotificationsTest.moc"
