// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/LogindSleepControl.h"

#include "dbus/BusNames.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeLogind.h"
#include "fakes/FakeXfce.h"
#include "support/StandInPrograms.h"
#include "support/TestSupport.h"

#include <QDBusVariant>
#include <QProcess>
#include <QSettings>
#include <QTimer>

#include <unistd.h>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class LogindSleepControlTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // GSettings and QSettings read these once.
        qputenv("GSETTINGS_BACKEND", "memory");
        qputenv("GSETTINGS_SCHEMA_DIR", m_schemas.path().toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", m_configuration.path().toLocal8Bit());
        QFile file(m_schemas.filePath(u"lid.gschema.xml"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(R"(<schemalist>
  <schema id="org.mate.power-manager" path="/org/mate/power-manager/">
    <key name="button-lid-ac" type="s"><default>'nothing'</default></key>
    <key name="button-lid-battery" type="s"><default>'suspend'</default></key>
  </schema>
  <schema id="org.cinnamon.settings-daemon.plugins.power" path="/org/cinnamon/settings-daemon/plugins/power/">
    <key name="lid-close-ac-action" type="s"><default>'hibernate'</default></key>
    <key name="lid-close-battery-action" type="s"><default>'blank'</default></key>
  </schema>
</schemalist>)") > 0);
        file.close();
        QCOMPARE(QProcess::execute(u"glib-compile-schemas"_s, {m_schemas.path()}), 0);
        QVERIFY(QDir(m_configuration.path()).mkpath(u"lxqt"_s));
    }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_logind = std::make_unique<FakeLogind>(m_service);
        m_logind->properties[FakeLogind::lidClosed] = true;
        QVERIFY(m_logind->appear());
        m_control = std::make_unique<LogindSleepControl>(m_client, m_client, m_clock, QStringList{m_programs.path()});
        m_answers.clear();
        m_override.reset();
        for (const QString& name : {u"systemd-run"_s, u"systemd-inhibit"_s, u"cat"_s})
            m_programs.write(name, "exit 1");
    }

    void cleanup()
    {
        m_control.reset();
        m_override.reset();
        m_systemd.reset();
        m_logind.reset();
        QTRY_COMPARE(m_clock.pending(), std::size_t{0});
    }

    void whereLogindActsALockOfOurOwnIsTaken()
    {
        take();
        QTRY_COMPARE(m_answers, QStringList{u"taken"_s});
        const QVariantList request{u"handle-lid-switch:sleep"_s, u"Tarvik"_s, u"Lid-closed mode"_s, u"block"_s};
        QCOMPARE(m_logind->held(), QList<QVariantList>{request});
    }

    void theLockIsTakenAgainWhenLogindRestarts()
    {
        take();
        QTRY_COMPARE(m_answers, QStringList{u"taken"_s});
        m_logind->vanish();
        QVERIFY(m_logind->appear());
        QTRY_COMPARE(m_logind->questions.count(FakeLogind::inhibit), 2);
        QCOMPARE(m_answers, QStringList{u"taken"_s});
    }

    void aLockThatTheNextLogindRefusesIsLost()
    {
        take();
        QTRY_COMPARE(m_answers, QStringList{u"taken"_s});
        m_logind->vanish();
        m_logind->failWith(FakeLogind::inhibit, QDBusError::AccessDenied);
        QVERIFY(m_logind->appear());
        QTRY_COMPARE(m_answers, (QStringList{u"taken"_s, u"lost"_s}));
    }

    void aDaemonThatComesLaterEndsALockThatCannotBindIt()
    {
        systemdRuns(u"252.39-1~deb12u1"_s);
        take();
        QTRY_COMPARE(m_answers, QStringList{u"taken"_s});
        waitForTheBus();
        desktopIs(BusNames::matePowerManager);
        QTRY_COMPARE(m_clock.pending(), std::size_t{1});
        m_clock.advance(Seconds::zero());
        QCOMPARE(m_answers, (QStringList{u"taken"_s, u"lost"_s}));
        desktopIs({});
    }

    void aDaemonThatComesMeanwhileDoesSo()
    {
        systemdRuns(u"252.39-1~deb12u1"_s);
        take();
        QTRY_COMPARE(m_answers, QStringList{u"taken"_s});
        desktopIs(BusNames::matePowerManager);
        QTRY_COMPARE(m_clock.pending(), std::size_t{1});
        m_clock.advance(Seconds::zero());
        QCOMPARE(m_answers, (QStringList{u"taken"_s, u"lost"_s}));
        desktopIs({});
    }

    void withoutLogindThereIsNone()
    {
        m_logind->vanish();
        take();
        QTRY_COMPARE(m_answers, QStringList{u"logind does not answer"_s});
    }

    void withoutSystemdNobodyCanHoldALockForAnAdministrator()
    {
        m_logind->failWith(FakeLogind::inhibit, QDBusError::AccessDenied);
        take();
        QTRY_COMPARE(m_answers, QStringList{u"systemd, which would hold the lock, does not run this machine"_s});
    }

    void theAdministratorsLockFails_data()
    {
        QTest::addColumn<QByteArray>("pkexec");
        QTest::addColumn<QString>("error");
        QTest::newRow("dismissed") << QByteArray("exit 126")
                                   << u"the question for an administrator’s password was dismissed"_s;
        QTest::newRow("not authorised") << QByteArray("exit 127") << u"not authorised to act as an administrator"_s;
        QTest::newRow("systemd-run fails") << QByteArray("exit 5") << u"systemd-run has ended with status 5"_s;
        QTest::newRow("killed") << QByteArray("kill -9 $$") << u"pkexec was killed"_s;
        QTest::newRow("not really held") << QByteArray("exec /bin/cat") << u"logind does not list the lock"_s;
        QTest::newRow("not there") << QByteArray() << u"pkexec is not installed"_s;
    }

    void theAdministratorsLockFails()
    {
        QFETCH(QByteArray, pkexec);
        systemdRuns(u"252"_s);
        m_logind->failWith(FakeLogind::inhibit, QDBusError::AccessDenied);
        if (pkexec.isEmpty())
            m_programs.remove(u"pkexec"_s);
        else
            m_programs.write(u"pkexec"_s, pkexec);
        take();
        QTRY_COMPARE(m_answers.size(), 1);
        QTEST(m_answers.constFirst(), "error");
    }

    void anAdministratorsLockThatEndsIsLost()
    {
        systemdRuns(u"252"_s);
        m_logind->failWith(FakeLogind::inhibit, QDBusError::AccessDenied);
        m_logind->inhibitors = {{u"sleep:handle-lid-switch"_s, 0, 5, u"Tarvik"_s}};
        m_programs.write(u"pkexec"_s, "read line; echo; exec /bin/sleep 0.2");
        take();
        QTRY_COMPARE(m_answers, (QStringList{u"taken"_s, u"lost"_s}));
    }

    void anAdministratorsLockThatTheNextLogindDoesNotKnowIsLost()
    {
        systemdRuns(u"252"_s);
        m_logind->failWith(FakeLogind::inhibit, QDBusError::AccessDenied);
        m_logind->inhibitors = {{u"sleep:handle-lid-switch"_s, 0, 5, u"Tarvik"_s}};
        m_programs.write(u"pkexec"_s, "exec /bin/cat");
        take();
        QTRY_COMPARE(m_answers, QStringList{u"taken"_s});
        m_logind->vanish();
        QVERIFY(m_logind->appear());
        QTRY_COMPARE(m_logind->questions.count(FakeLogind::listInhibitors), 3);
        QCOMPARE(m_answers, QStringList{u"taken"_s});
        m_logind->vanish();
        m_logind->inhibitors = {};
        QVERIFY(m_logind->appear());
        QTRY_COMPARE(m_answers, (QStringList{u"taken"_s, u"lost"_s}));
    }

    void theQuestionIsTakenBackWithWhoAsked()
    {
        systemdRuns(u"252"_s);
        m_logind->failWith(FakeLogind::inhibit, QDBusError::AccessDenied);
        const QString told = m_programs.path() + u"/told"_s;
        m_programs.write(u"pkexec"_s, "echo $$ >" + told.toLocal8Bit() + "; exec /bin/sleep 86393");
        take();
        QTRY_VERIFY(QFile::exists(told) && QFileInfo(told).size() > 0);
        QFile file(told);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString process = u"/proc/"_s + QString::fromLatin1(file.readLine()).trimmed();
        QVERIFY(QFile::exists(process));
        m_control.reset();
        QTRY_VERIFY(!QFile::exists(process));
        QCOMPARE(m_answers, QStringList());
        QVERIFY(QFile::remove(told));
    }

    void sleepIsAskedForOnceWhereADaemonMissedTheLid()
    {
        daemonHasTheLid();
        m_control->sleepForClosedLid();
        m_clock.advance(ClosedLidSleep::settlingTime / 2);
        QCOMPARE(m_clock.pending(), std::size_t{1});
        m_clock.advance(ClosedLidSleep::settlingTime);
        QTRY_COMPARE(m_logind->questions.count(FakeLogind::suspend), 1);
        QCOMPARE(m_logind->arguments[FakeLogind::suspend].constFirst(), QVariantList{false});
        m_clock.advance(Seconds{60});
        waitForTheBus();
        QCOMPARE(m_logind->questions.count(FakeLogind::suspend), 1);
    }

    void sleepIsAskedForEvenWhenTheProgramEndsMeanwhile()
    {
        daemonHasTheLid();
        m_control->sleepForClosedLid();
        QTimer::singleShot(0, this, [this] { m_clock.advance(ClosedLidSleep::settlingTime); });
        m_control.reset();
        QCOMPARE(m_logind->questions.count(FakeLogind::suspend), 1);
    }

    void aNewOverrideComesBeforeSleep()
    {
        daemonHasTheLid();
        systemdRuns(u"257"_s);
        m_control->sleepForClosedLid();
        take();
        QTRY_COMPARE(m_answers, QStringList{u"taken"_s});
        QCOMPARE(m_clock.pending(), std::size_t{0});
    }

    void anOverrideThatIsRefusedDoesNot()
    {
        daemonHasTheLid();
        m_control->sleepForClosedLid();
        take();
        QTRY_COMPARE(m_answers.size(), 1);
        QVERIFY(!m_override);
        m_clock.advance(ClosedLidSleep::settlingTime);
        QTRY_COMPARE(m_logind->questions.count(FakeLogind::suspend), 1);
    }

    void whoeverObjectsIsWaitedForOnlyForAWhile()
    {
        daemonHasTheLid();
        m_logind->inhibitors.append({u"sleep"_s, 0, 6});
        m_control->sleepForClosedLid();
        m_clock.advance(ClosedLidSleep::settlingTime);
        for (int i = 0; i < ClosedLidSleep::waits; ++i) {
            QTRY_COMPARE(m_clock.pending(), std::size_t{1});
            QCOMPARE(m_clock.untilNext(), ClosedLidSleep::waitingTime);
            m_clock.advance(ClosedLidSleep::waitingTime);
        }
        QTRY_COMPARE(m_logind->questions.count(FakeLogind::listInhibitors), ClosedLidSleep::waits + 1);
        m_logind->inhibitors.removeLast();
        waitForTheBus();
        QCOMPARE(m_clock.pending(), std::size_t{0});
        QCOMPARE(m_logind->questions.count(FakeLogind::suspend), 0);
    }

    void sleepComesAsSoonAsNobodyObjects()
    {
        daemonHasTheLid();
        m_logind->inhibitors.append({u"handle-lid-switch:sleep"_s, 0, 6, u"Tarvik"_s});
        m_control->sleepForClosedLid();
        m_clock.advance(ClosedLidSleep::settlingTime);
        QTRY_COMPARE(m_clock.pending(), std::size_t{1});
        m_logind->inhibitors.removeLast();
        m_clock.advance(ClosedLidSleep::waitingTime);
        QTRY_COMPARE(m_logind->questions.count(FakeLogind::suspend), 1);
    }

    void aRefusalIsLogged()
    {
        daemonHasTheLid();
        m_logind->failWith(FakeLogind::suspend, QDBusError::AccessDenied);
        expectLog(QtWarningMsg, u"The computer was not put to sleep: refused"_s);
        m_control->sleepForClosedLid();
        m_clock.advance(ClosedLidSleep::settlingTime);
        QTRY_COMPARE(m_logind->questions.count(FakeLogind::suspend), 1);
        waitForTheBus();
    }

    void whatTheDesktopWouldDoIsRead_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QVariant>("action");
        QTest::addColumn<bool>("isOnMains");
        QTest::addColumn<bool>("suspends");
        const auto add = [](const char* row, const QString& name, const QVariant& action, bool mains, bool suspends) {
            QTest::newRow(row) << name << action << mains << suspends;
        };
        add("KDE, nothing", BusNames::kdePowerManager, 0, true, false);
        add("KDE, suspend", BusNames::kdePowerManager, 1, true, true);
        add("KDE, hibernate", BusNames::kdePowerManager, 2, true, true);
        add("KDE, shut down", BusNames::kdePowerManager, 8, true, false);
        add("KDE, lock", BusNames::kdePowerManager, 32, true, false);
        add("KDE of another kind", BusNames::kdePowerManager, u"text"_s, true, true);
        add("XFCE, as it comes", BusNames::xfcePowerManager, {}, true, false);
        add("XFCE, suspend", BusNames::xfcePowerManager, 1U, true, true);
        add("XFCE, hibernate on battery", BusNames::xfcePowerManager, 2U, false, true);
        add("XFCE, lock", BusNames::xfcePowerManager, 3U, false, false);
        add("MATE on mains", BusNames::matePowerManager, {}, true, false);
        add("MATE on battery", BusNames::matePowerManager, {}, false, true);
        add("Cinnamon on mains", BusNames::cinnamonPowerManager, {}, true, true);
        add("Cinnamon on battery", BusNames::cinnamonPowerManager, {}, false, false);
        add("LXQt, as it comes", BusNames::lxqtSession, {}, true, false);
        add("LXQt, suspend", BusNames::lxqtSession, 4, true, true);
        add("LXQt, suspend on battery", BusNames::lxqtSession, 4, false, true);
        add("LXQt, lock", BusNames::lxqtSession, -2, false, false);
        add("unknown", {}, {}, true, true);
    }

    void whatTheDesktopWouldDoIsRead()
    {
        QFETCH(QString, name);
        QFETCH(QVariant, action);
        QFETCH(bool, isOnMains);
        QFETCH(bool, suspends);
        daemonHasTheLid();
        m_logind->properties[u"OnExternalPower"_s] = isOnMains;
        FakeDBusService kde(
            m_service, BusNames::kdePowerManager, u"/org/kde/Solid/PowerManagement/Actions/HandleButtonEvents"_s);
        kde.handler = [&action](const QDBusMessage& call) { return call.createReply(action); };
        FakeXfce xfce(m_service, u"4.18.1"_s);
        if (name == BusNames::kdePowerManager) {
            QVERIFY(kde.appear());
        } else if (name == BusNames::xfcePowerManager) {
            QVERIFY(xfce.appear());
            if (action.isValid())
                xfce.set(isOnMains ? u"lid-action-on-ac"_s : u"lid-action-on-battery"_s, action);
        } else {
            desktopIs(name);
        }
        QSettings lxqt(m_configuration.filePath(u"lxqt/lxqt-powermanagement.conf"_s), QSettings::IniFormat);
        lxqt.clear();
        if (action.isValid())
            lxqt.setValue(isOnMains ? u"lidClosedAcAction"_s : u"lidClosedAction"_s, action);
        lxqt.sync();

        m_control->sleepForClosedLid();
        m_clock.advance(ClosedLidSleep::settlingTime);
        QTRY_COMPARE(m_logind->questions.count(FakeLogind::listInhibitors), 1);
        waitForTheBus();
        waitForTheBus();
        waitForTheBus();
        QCOMPARE(m_logind->questions.count(FakeLogind::suspend), suspends ? 1 : 0);
        desktopIs({});
    }

private:
    void take()
    {
        m_control->takeOverride([this](std::unique_ptr<SleepOverride> taken, const QString& error) {
            m_override = std::move(taken);
            m_answers.append(m_override ? u"taken"_s : error);
            if (m_override)
                m_override->onLost = [this] {
                    m_answers.append(u"lost"_s);
                    m_override.reset();
                };
        });
        QCOMPARE(m_answers, QStringList());
    }

    void daemonHasTheLid() { m_logind->inhibitors = {{u"handle-power-key:handle-lid-switch"_s, getuid(), 5}}; }

    void desktopIs(const QString& name)
    {
        if (!m_desktop.isEmpty())
            m_service.unregisterService(m_desktop);
        m_desktop = name;
        QVERIFY(name.isEmpty() || m_service.registerService(name));
    }

    void systemdRuns(const QString& version)
    {
        m_systemd = std::make_unique<FakeDBusService>(
            m_service, u"org.freedesktop.systemd1"_s, u"/org/freedesktop/systemd1"_s);
        m_systemd->handler = [version](const QDBusMessage& call) {
            return call.createReply(QVariant::fromValue(QDBusVariant(version)));
        };
        QVERIFY(m_systemd->appear());
    }

    /// Until everything that is on its way between the two has arrived.
    void waitForTheBus()
    {
        bool hasArrived = false;
        const auto ping = QDBusMessage::createMethodCall(
            u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s, u"com.example.Test"_s, u"Ping"_s);
        const DBusCall call = callAsync(m_client, ping, [&](const QDBusMessage&) { hasArrived = true; });
        QTRY_VERIFY(hasArrived);
    }

    QTemporaryDir m_schemas;
    QTemporaryDir m_configuration;
    StandInPrograms m_programs;
    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_service = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"service"_s);
    FakeClock m_clock;
    std::unique_ptr<FakeLogind> m_logind;
    std::unique_ptr<FakeDBusService> m_systemd;
    QString m_desktop;
    std::unique_ptr<LogindSleepControl> m_control;
    std::unique_ptr<SleepOverride> m_override;
    QStringList m_answers;
};

QTEST_GUILESS_MAIN(LogindSleepControlTest)
#include "LogindSleepControlTest.moc"
