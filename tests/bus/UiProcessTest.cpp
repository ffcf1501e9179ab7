// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/UiProcess.h"

#include "dbus/contracts/UiWire.h"
#include "fakes/FakeDBusService.h"
#include "fakes/FakeUiLauncher.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class UiProcessTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_calls.clear();
        makeProcess();
    }

    void cleanup() { endProcess(); }

    void aRunningProcessIsToldWhatToShow()
    {
        QVERIFY(m_windows->appear());
        FakeUiLauncher launcher;
        UiProcess windows(launcher, m_client);
        windows.showPanel(1268, 786, u"token"_s);
        QTRY_COMPARE(m_calls.size(), 1);
        QVERIFY2(m_calls[0].startsWith("ShowPanel"_L1) && m_calls[0].contains("1268"_L1)
                && m_calls[0].contains("786"_L1) && m_calls[0].contains("token"_L1),
            qPrintable(m_calls[0]));
        windows.showSettings({});
        QTRY_COMPARE(m_calls.size(), 2);
        QVERIFY(m_calls[1].startsWith("ShowSettings"_L1));
        QCOMPARE(launcher.launches, 0);
    }

    void aProcessThatIsNotThereIsStartedAndThenTold()
    {
        FakeUiLauncher launcher;
        UiProcess windows(launcher, m_client);
        windows.showPanel(1, 2, {});
        QTRY_COMPARE(launcher.launches, 1);
        QVERIFY(m_windows->appear());
        QTRY_COMPARE(m_calls.size(), 1);
    }

    void whoAsksForAWindowIsToldThatThereAreNone()
    {
        FakeUiLauncher launcher;
        launcher.isThere = false;
        UiProcess windows(launcher, m_client);
        int tellings = 0;
        windows.onMissing = [&] { ++tellings; };
        // Nobody has asked for this one.
        windows.showOnboarding({});
        windows.showPanel(1, 2, {});
        QTRY_COMPARE(tellings, 1);
        windows.showPanelAtTray({});
        QTRY_COMPARE(tellings, 2);
        windows.showSettings({});
        QTRY_COMPARE(tellings, 3);
        QCOMPARE(launcher.launches, 0);
        // As soon as they are installed they open.
        launcher.isThere = true;
        windows.showPanel(3, 4, {});
        QTRY_COMPARE(launcher.launches, 1);
    }

    void everyWindowCanBeAskedFor()
    {
        QVERIFY(m_windows->appear());
        FakeUiLauncher launcher;
        UiProcess windows(launcher, m_client);
        windows.showOnboarding(u"a"_s);
        windows.showRestartAlert(u"b"_s);
        windows.showHelperApproval(u"c"_s);
        QTRY_COMPARE(m_calls.size(), 3);
        QCOMPARE(m_calls,
            (QStringList{call(u"ShowOnboarding"_s, {u"a"_s}),
                call(u"ShowRestartAlert"_s, {u"b"_s}),
                call(u"ShowHelperApproval"_s, {u"c"_s})}));
    }

    void thePanelIsShownAgainWhereTheTrayWas()
    {
        QVERIFY(m_windows->appear());
        FakeUiLauncher launcher;
        UiProcess windows(launcher, m_client);
        QList<bool> changes;
        windows.onPanelChange = [&](bool isOpen) { changes.append(isOpen); };
        windows.showPanelAtTray(u"token"_s);
        QTRY_COMPARE(m_calls, QStringList{call(u"ShowPanelAtTray"_s, {0, 0, u"token"_s})});
        m_windows->emitSignal(QString::fromLatin1(UiWire::windowsInterface), u"PanelOpened"_s, {1268, 14});
        QTRY_COMPARE(changes, QList<bool>{true});
        m_windows->emitSignal(QString::fromLatin1(UiWire::windowsInterface), u"PanelClosed"_s, {});
        QTRY_COMPARE(changes, (QList<bool>{true, false}));
        // One that was opened elsewhere tells nothing of the tray.
        m_windows->emitSignal(QString::fromLatin1(UiWire::windowsInterface), u"PanelOpened"_s, {0, 0});
        QTRY_COMPARE(changes, (QList<bool>{true, false, true}));
        windows.showPanelAtTray({});
        QTRY_COMPARE(m_calls.value(1), call(u"ShowPanelAtTray"_s, {1268, 14, QString()}));
    }

    void anOpenPanelGoesWithItsProcess()
    {
        QVERIFY(m_windows->appear());
        FakeUiLauncher launcher;
        UiProcess windows(launcher, m_client);
        QList<bool> changes;
        windows.onPanelChange = [&](bool isOpen) { changes.append(isOpen); };
        windows.showPanel(1, 2, {});
        QTRY_COMPARE(m_calls.size(), 1);
        m_windows->emitSignal(QString::fromLatin1(UiWire::windowsInterface), u"PanelOpened"_s, {1268, 14});
        QTRY_COMPARE(changes, QList<bool>{true});
        m_windows->vanish();
        QTRY_COMPARE(changes, (QList<bool>{true, false}));
    }

    void ofClicksForTheSameWindowWhileItStartsTheLastOneCounts()
    {
        FakeUiLauncher launcher;
        UiProcess windows(launcher, m_client);
        windows.showPanel(1, 2, {});
        windows.showPanel(3, 4, {});
        QTRY_COMPARE(launcher.launches, 2);
        QVERIFY(m_windows->appear());
        QTRY_COMPARE(m_calls.size(), 1);
        QCOMPARE(m_calls[0], call(u"ShowPanel"_s, {3, 4, QString()}));
    }

    void windowsThatAreWantedWhileItStartsAllComeInTheirOrder()
    {
        FakeUiLauncher launcher;
        UiProcess windows(launcher, m_client);
        windows.showOnboarding({});
        windows.showSettings({});
        windows.showRestartAlert({});
        QTRY_COMPARE(launcher.launches, 3);
        // What was still on its way out when it was called is started again for all of them.
        launcher.end({});
        QCOMPARE(launcher.launches, 6);
        QVERIFY(m_windows->appear());
        QTRY_COMPARE(m_calls.size(), 3);
        QCOMPARE(m_calls,
            (QStringList{call(u"ShowOnboarding"_s, {QString()}),
                call(u"ShowSettings"_s, {QString()}),
                call(u"ShowRestartAlert"_s, {QString()})}));
    }

    void aProcessThatCannotStartIsLoggedAndTriedAgainAtTheNextClick()
    {
        FakeUiLauncher launcher;
        UiProcess windows(launcher, m_client);
        windows.showPanel(1, 2, {});
        QTRY_COMPARE(launcher.launches, 1);
        expectLog(QtWarningMsg, u"^The UI process failed: it crashed with signal 11$"_s);
        launcher.end(u"it crashed with signal 11"_s);
        windows.showPanel(3, 4, {});
        QTRY_COMPARE(launcher.launches, 2);
        QVERIFY(m_windows->appear());
        QTRY_COMPARE(m_calls.size(), 1);
        QVERIFY(m_calls[0].contains(u'3'));
    }

    void aProcessThatLeavesAsItIsCalledIsStartedAgain()
    {
        QVERIFY(m_windows->appear());
        m_windows->handler = [this](const QDBusMessage& call) {
            m_windows->vanish();
            return call.createErrorReply(QDBusError::NoReply, u"gone"_s);
        };
        FakeUiLauncher launcher;
        UiProcess windows(launcher, m_client);
        windows.showPanel(1, 2, {});
        QTRY_COMPARE(launcher.launches, 1);
        // The old one was still there, so that nothing was started; now it has ended.
        launcher.end({});
        QCOMPARE(launcher.launches, 2);
        // Whoever ends without ever having come up is not started for ever.
        launcher.end({});
        QCOMPARE(launcher.launches, 2);
    }

    void aGoodEndStartsNothing()
    {
        FakeUiLauncher launcher;
        UiProcess windows(launcher, m_client);
        launcher.end({});
        QCOMPARE(launcher.launches, 0);
    }

    void aProcessThatDoesNotAnswerIsKilled()
    {
        QVERIFY(m_windows->appear());
        leaveCallsUnanswered();
        FakeUiLauncher launcher;
        UiProcess windows(launcher, m_client);
        expectLog(QtWarningMsg, u"^The UI process does not answer and is killed$"_s);
        windows.showPanel(1, 2, {});
        QTRY_COMPARE_WITH_TIMEOUT(launcher.kills, 1, 10'000);
        QCOMPARE(m_calls, QStringList{u"ShowPanel"_s});
        QCOMPARE(launcher.launches, 0);
        // The next click meets a new process.
        m_windows->vanish();
        launcher.end({});
        windows.showPanel(3, 4, {});
        QTRY_COMPARE(launcher.launches, 1);
    }

    void aProcessThatCrashesInTheMiddleOfACallIsNotCalledHanging()
    {
        FakeUiLauncher launcher;
        UiProcess windows(launcher, m_client);
        windows.showPanel(1, 2, {});
        QTRY_COMPARE(launcher.launches, 1);
        leaveCallsUnanswered();
        QVERIFY(m_windows->appear());
        QTRY_COMPARE(m_calls.size(), 1);
        endProcess();
        QTRY_VERIFY(!windows.isCalling());
        expectLog(QtWarningMsg, u"^The UI process failed: it crashed with signal 11$"_s);
        launcher.end(u"it crashed with signal 11"_s);
        QCOMPARE(launcher.kills, 0);
        // What crashed over a click is not started for it again, but for the next one.
        QCOMPARE(launcher.launches, 1);
        windows.showPanel(3, 4, {});
        QTRY_COMPARE(launcher.launches, 2);
        startProcess();
        QTRY_COMPARE(m_calls.size(), 2);
        QVERIFY2(m_calls[1].contains(u'3'), qPrintable(m_calls[1]));
    }

    void aProcessThatRanBeforeAndCrashesInTheMiddleOfACallIsReplaced()
    {
        leaveCallsUnanswered();
        QVERIFY(m_windows->appear());
        FakeUiLauncher launcher;
        UiProcess windows(launcher, m_client);
        windows.showPanel(1, 2, {});
        QTRY_COMPARE(m_calls.size(), 1);
        expectLog(QtWarningMsg, u"^The UI process failed: it crashed with signal 11$"_s);
        launcher.end(u"it crashed with signal 11"_s);
        endProcess();
        QTRY_COMPARE(launcher.launches, 1);
        QCOMPARE(launcher.kills, 0);
        startProcess();
        QTRY_COMPARE(m_calls.size(), 2);
        QVERIFY2(m_calls[1].startsWith("ShowPanel"_L1) && m_calls[1].contains(u'1'), qPrintable(m_calls[1]));
        QTRY_VERIFY(!windows.isCalling());
        QCOMPARE(launcher.launches, 1);
    }

    void aProcessThatRefusesIsLogged()
    {
        QVERIFY(m_windows->appear());
        m_windows->handler
            = [](const QDBusMessage& call) { return call.createErrorReply(QDBusError::Failed, u"no display"_s); };
        FakeUiLauncher launcher;
        UiProcess windows(launcher, m_client);
        expectLog(QtWarningMsg, u"^The UI process did not show a window: no display$"_s);
        windows.showPanel(1, 2, {});
        // The answer to the second call comes after that to the first.
        m_windows->handler = [this](const QDBusMessage& call) {
            if (m_calls.isEmpty())
                m_calls.append(u"refused"_s);
            else
                m_calls.append(u"shown"_s);
            return m_calls.size() == 1 ? call.createErrorReply(QDBusError::Failed, u"no display"_s)
                                       : call.createReply();
        };
        windows.showPanel(1, 2, {});
        QTRY_COMPARE(m_calls.size(), 2);
        QTRY_VERIFY(!windows.isCalling());
        QCOMPARE(launcher.launches, 0);
    }

private:
    void makeProcess()
    {
        m_windows = std::make_unique<FakeDBusService>(
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_connectionName),
            QString::fromLatin1(UiWire::busName),
            QString::fromLatin1(UiWire::objectPath));
        m_windows->handler = [this](const QDBusMessage& call) {
            m_calls.append(UiProcessTest::call(call.member(), call.arguments()));
            return call.createReply();
        };
    }

    static QString call(const QString& method, const QVariantList& arguments)
    {
        return method + u' ' + QDebug::toString(arguments);
    }

    void startProcess()
    {
        makeProcess();
        QVERIFY(m_windows->appear());
    }

    /// Closes the connection, upon which the bus answers the calls that are open in the place of the process.
    void endProcess()
    {
        m_windows.reset();
        QDBusConnection::disconnectFromBus(m_connectionName);
    }

    void leaveCallsUnanswered()
    {
        m_windows->handler = [this](const QDBusMessage& call) {
            m_calls.append(call.member());
            return QDBusMessage();
        };
    }

    const QString m_connectionName = u"windows"_s;
    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"tarvik"_s);
    std::unique_ptr<FakeDBusService> m_windows;
    QStringList m_calls;
};

QTEST_GUILESS_MAIN(UiProcessTest)
#include "UiProcessTest.moc"
