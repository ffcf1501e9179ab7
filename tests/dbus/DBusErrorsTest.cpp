// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "dbus/DBusErrors.h"

#include "support/TestSupport.h"

#include <cerrno>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class DBusErrorsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void errorNamesBecomeErrnos_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("code");
        const auto row = [](const char* name, int code) { QTest::newRow(name) << QString::fromLatin1(name) << code; };
        row("org.freedesktop.DBus.Error.AccessDenied", EACCES);
        row("org.freedesktop.DBus.Error.InteractiveAuthorizationRequired", EACCES);
        row("org.freedesktop.DBus.Error.LimitsExceeded", ENOBUFS);
        row("org.freedesktop.DBus.Error.ServiceUnknown", EHOSTUNREACH);
        row("org.freedesktop.DBus.Error.NoReply", ETIMEDOUT);
        row("org.freedesktop.DBus.Error.Disconnected", ECONNRESET);
        row("org.freedesktop.login1.OperationInProgress", EINPROGRESS);
        row("com.example.Odd", EIO);
        row("", EIO);
    }

    void errorNamesBecomeErrnos()
    {
        QFETCH(QString, name);
        QTEST(DBusErrors::toErrno(name), "code");
    }

    void aPeerIsGoneThatIsNotThereOrIsLeaving()
    {
        QVERIFY(DBusErrors::isPeerGone(u"org.freedesktop.DBus.Error.ServiceUnknown"_s));
        QVERIFY(DBusErrors::isPeerGone(u"org.freedesktop.DBus.Error.NameHasNoOwner"_s));
        QVERIFY(DBusErrors::isPeerGone(u"org.freedesktop.DBus.Error.NoReply"_s));
        QVERIFY(DBusErrors::isPeerGone(u"org.freedesktop.DBus.Error.UnknownObject"_s));
        QVERIFY(!DBusErrors::isPeerGone(u"org.freedesktop.DBus.Error.AccessDenied"_s));
        QVERIFY(!DBusErrors::isPeerGone({}));
    }
};

QTEST_APPLESS_MAIN(DBusErrorsTest)
#include "DBusErrorsTest.moc"
