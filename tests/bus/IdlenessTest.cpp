// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/Idleness.h"

#include "bus/UiProcess.h"
#include "dbus/contracts/UiWire.h"
#include "engine/CoordinatedMachine.h"
#include "fakes/FakeDBusService.h"
#include "fakes/FakeUiLauncher.h"
#include "fakes/FakeUpdateDriver.h"
#include "support/TestSupport.h"
#include "updates/Updater.h"

#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;

/// Whatever makes Tarvik busy, and that its end is told of.
class IdlenessTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_machine.emplace();
    }

    void cleanup()
    {
        m_idleness.reset();
        m_ui.reset();
        m_updater.reset();
        m_machine.reset();
    }

    void nothingToDoIsIdle()
    {
        start();
        QVERIFY(m_idleness->isIdle());
    }

    void anAgentIsWork()
    {
        start();
        m_machine->run("claude\n");
        QVERIFY(isBusy());
        m_machine->run("");
        QVERIFY(isIdleAgain());
    }

    void anAgentThatMayNotKeepAwakeIsSeenAgainAnyway()
    {
        start();
        m_machine->settings->setIsEnabled(false);
        m_machine->run("claude\n");
        QVERIFY(m_idleness->isIdle());
    }

    void aLeaseIsKeptEvenWhereItHasNoEffect()
    {
        start();
        m_machine->settings->setIsEnabled(false);
        CoordinatedMachine::settle();
        m_machine->hook({{u"action"_s, u"acquire"_s}, {u"session"_s, u"claude:1"_s}, {u"tool"_s, u"claude"_s}});
        QVERIFY(isBusy());
        m_machine->hook({{u"action"_s, u"release"_s}, {u"session"_s, u"claude:1"_s}});
        QVERIFY(isIdleAgain());
    }

    void aLeaseThatLapsesIsNoneAnyMore()
    {
        start();
        m_machine->hook({{u"action"_s, u"acquire"_s}, {u"session"_s, u"make"_s}, {u"ttl"_s, u"60"_s}});
        QVERIFY(isBusy());
        m_machine->clock.advance(Seconds{61});
        QVERIFY(isIdleAgain());
    }

    void aSessionIsKeptEvenWhereItHasNoEffect()
    {
        start();
        m_machine->settings->setIsEnabled(false);
        CoordinatedMachine::settle();
        m_machine->coordinator->setTimedSession(10);
        QVERIFY(isBusy());
        m_machine->clock.advance(Seconds{600});
        QVERIFY(isIdleAgain());
    }

    void anOverrideThatIsStillOnIsNotLeft()
    {
        m_machine->store.values = {{u"clamshellEnabled"_s, true}, {u"lastHelperBuild"_s, u"7"_s}};
        m_machine->lid.present = true;
        m_machine->helper.current = HelperStatus::enabled;
        start();
        m_machine->run("claude\n");
        m_machine->helper.connection->reply(true);
        CoordinatedMachine::settle();
        m_machine->run("");
        QVERIFY(!m_machine->coordinator->isAwake());
        QVERIFY(isBusy());
        m_machine->helper.connection->reply(true);
        QVERIFY(isIdleAgain());
    }

    void aCheckForUpdatesIsWaitedFor()
    {
        start();
        m_updates.becomeAvailable();
        m_updater->checkForUpdates();
        QVERIFY(isBusy());
        m_updates.finish(true);
        QVERIFY(isIdleAgain());
    }

    void windowsStayOpen()
    {
        start();
        m_ui->showSettings({});
        QVERIFY(isBusy());
        QTRY_COMPARE(m_launcher.launches, 1);
        QVERIFY(isBusy());
        FakeDBusService windows(QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"windows"_s),
            QString::fromLatin1(UiWire::busName),
            QString::fromLatin1(UiWire::objectPath));
        int calls = 0;
        windows.handler = [&calls](const QDBusMessage& call) {
            ++calls;
            return call.createReply();
        };
        QVERIFY(windows.appear());
        QTRY_COMPARE(calls, 1);
        QTRY_VERIFY(!m_ui->isCalling());
        QVERIFY(isBusy());
        windows.vanish();
        QTRY_VERIFY(isIdleAgain());
    }

    void windowsThatFailAreNotWaitedFor()
    {
        start();
        m_ui->showSettings({});
        QTRY_COMPARE(m_launcher.launches, 1);
        QVERIFY(isBusy());
        expectLog(QtWarningMsg, u"^The UI process failed: it crashed with signal 11$"_s);
        m_launcher.end(u"it crashed with signal 11"_s);
        QVERIFY(isIdleAgain());
    }

private:
    void start()
    {
        m_machine->start();
        m_updates.current = UpdateDriver::Channel::unknown;
        m_launcher.launches = 0;
        m_updater.emplace(m_updates, m_machine->store, m_machine->clock);
        m_ui.emplace(m_launcher, m_client);
        m_idleness.emplace(Idleness::Sources{*m_machine->coordinator, *m_machine->hooks, *m_updater, *m_ui});
        connect(&*m_idleness, &Idleness::changed, this, [this] { m_isKnownToBeIdle = m_idleness->isIdle(); });
        m_isKnownToBeIdle = false;
    }

    bool isBusy() const { return !m_idleness->isIdle(); }
    bool isIdleAgain() const { return m_isKnownToBeIdle && m_idleness->isIdle(); }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"tarvik"_s);
    FakeUpdateDriver m_updates;
    FakeUiLauncher m_launcher;
    std::optional<CoordinatedMachine> m_machine;
    std::optional<Updater> m_updater;
    std::optional<UiProcess> m_ui;
    std::optional<Idleness> m_idleness;
    bool m_isKnownToBeIdle = false;
};

QTEST_GUILESS_MAIN(IdlenessTest)
#include "IdlenessTest.moc"
