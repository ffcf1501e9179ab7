// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/SystemdUserApplications.h"

#include "fakes/FakeSystemd.h"
#include "support/TestSupport.h"

#include <QDBusConnectionInterface>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

const auto editor = u"app-gnome-org.example.Editor-4242.scope"_s;
const auto browser = u"app-browser\\x2dnightly@0a1b2c3d4e5f60718293a4b5c6d7e8f9.service"_s;

QStringList ids(const SystemdUserApplications& applications)
{
    QStringList result;
    for (const auto& application : applications.list())
        result.append(application.id);
    result.sort();
    return result;
}

} // namespace

class SystemdUserApplicationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void withoutAManagerTheListIsEmpty()
    {
        SystemdUserApplications applications(QDBusConnection::sessionBus());
        // An answer on the same connection comes after those to the earlier calls.
        QVERIFY(!QDBusConnection::sessionBus().interface()->isServiceRegistered(u"org.freedesktop.systemd1"_s).value());
        QCoreApplication::processEvents();
        QVERIFY(applications.list().isEmpty());
    }

    void whatRunsAlreadyIsListed()
    {
        FakeSystemd systemd;
        QVERIFY(systemd.appear());
        systemd.start(editor);
        systemd.start(browser);
        systemd.start(u"app-unrelated"_s);
        systemd.load(u"app-gnome-org.example.Loaded-1.scope"_s);
        SystemdUserApplications applications(QDBusConnection::sessionBus());
        int changes = 0;
        const Subscription listening = applications.changed.subscribe([&] { ++changes; });
        QTRY_COMPARE(ids(applications), (QStringList{u"browser-nightly"_s, u"org.example.Editor"_s}));
        QCOMPARE(changes, 1);
        QCOMPARE(systemd.subscriptions, 1);
    }

    void launchAndEndAreSeen()
    {
        FakeSystemd systemd;
        QVERIFY(systemd.appear());
        SystemdUserApplications applications(QDBusConnection::sessionBus());
        QTRY_COMPARE(systemd.listings, 1);
        systemd.load(editor);
        QTRY_COMPARE(systemd.listings, 2);
        QVERIFY(applications.list().isEmpty());
        systemd.start(editor);
        QTRY_COMPARE(ids(applications), QStringList{u"org.example.Editor"_s});
        systemd.remove(editor);
        QTRY_VERIFY(applications.list().isEmpty());
    }

    void aServiceThatFailsIsNoLongerRunning()
    {
        FakeSystemd systemd;
        QVERIFY(systemd.appear());
        systemd.start(browser);
        SystemdUserApplications applications(QDBusConnection::sessionBus());
        QTRY_COMPARE(ids(applications), QStringList{u"browser-nightly"_s});
        systemd.fail(browser);
        QTRY_VERIFY(applications.list().isEmpty());
    }

    void otherUnitsCauseNoListing()
    {
        FakeSystemd systemd;
        QVERIFY(systemd.appear());
        SystemdUserApplications applications(QDBusConnection::sessionBus());
        QTRY_COMPARE(systemd.listings, 1);
        systemd.load(u"dbus-:1.2-org.example.Service@0.service"_s);
        systemd.start(u"vte-spawn-0a1b.scope"_s);
        systemd.start(editor);
        QTRY_COMPARE(ids(applications), QStringList{u"org.example.Editor"_s});
        QCOMPARE(systemd.listings, 2);
    }

    void aManagerThatRestartsIsFollowed()
    {
        FakeSystemd systemd;
        SystemdUserApplications applications(QDBusConnection::sessionBus());
        int changes = 0;
        const Subscription listening = applications.changed.subscribe([&] { ++changes; });
        systemd.start(editor);
        QVERIFY(systemd.appear());
        QTRY_COMPARE(ids(applications), QStringList{u"org.example.Editor"_s});
        systemd.vanish();
        QTRY_VERIFY(applications.list().isEmpty());
        QVERIFY(systemd.appear());
        QTRY_COMPARE(ids(applications), QStringList{u"org.example.Editor"_s});
        QCOMPARE(systemd.subscriptions, 1);
        QCOMPARE(changes, 3);
    }

    void anAnswerOfTheWrongTypeChangesNothing()
    {
        FakeSystemd systemd;
        QVERIFY(systemd.appear());
        systemd.start(editor);
        SystemdUserApplications applications(QDBusConnection::sessionBus());
        QTRY_COMPARE(ids(applications), QStringList{u"org.example.Editor"_s});
        systemd.isBroken = true;
        systemd.start(browser);
        QTRY_COMPARE(systemd.listings, 2);
        systemd.isBroken = false;
        systemd.start(browser);
        QTRY_COMPARE(ids(applications), (QStringList{u"browser-nightly"_s, u"org.example.Editor"_s}));
    }

    void manyChangesAtOnceAreOneOrTwoListings()
    {
        FakeSystemd systemd;
        QVERIFY(systemd.appear());
        SystemdUserApplications applications(QDBusConnection::sessionBus());
        QTRY_COMPARE(systemd.listings, 1);
        for (int i = 0; i < 50; ++i)
            systemd.start(u"app-gnome-org.example.App%1-1.scope"_s.arg(i));
        QTRY_COMPARE(applications.list().size(), 50);
        QVERIFY(systemd.listings < 10);
    }
};

QTEST_GUILESS_MAIN(SystemdUserApplicationsTest)
#include "SystemdUserApplicationsTest.moc"
