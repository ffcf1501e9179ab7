// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hotkey/LockScreen.h"

#include "fakes/FakeHotKeys.h"
#include "fakes/FakeScreenLock.h"
#include "hotkey/HotKey.h"
#include "hotkey/HotKeyCenter.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class LockScreenTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theShortcutIsCommandOptionA()
    {
        QCOMPARE(LockShortcut::keyCode, 0U);
        QCOMPARE(LockShortcut::modifiers, 0x900U);
    }

    void pressingTheShortcutLocksTheScreen()
    {
        FakeHotKeys hotKeys;
        FakeScreenLock screenLock;
        HotKeyCenter center(hotKeys);
        const HotKey hotKey(
            center,
            LockShortcut::keyCode,
            LockShortcut::modifiers,
            [&] { lockScreen(screenLock, {}); },
            LockShortcut::purpose());
        QCOMPARE(screenLock.requests, 0);
        hotKeys.press(0, 0x900);
        QCOMPARE(screenLock.requests, 1);
        screenLock.answer({});
    }

    void aFailureIsOneLineInTheLogAndIsTold()
    {
        FakeScreenLock screenLock;
        QStringList told;
        lockScreen(screenLock, [&](const QString& title, const QString& body) { told = {title, body}; });
        expectLog(QtCriticalMsg, u"^Could not lock the screen: no screen locker could be reached$"_s);
        screenLock.answer(u"no screen locker could be reached"_s);
        QCOMPARE(told, (QStringList{u"Tarvik could not lock the screen"_s, u"No screen locker could be reached"_s}));
    }

    void aLockedScreenIsNotTold()
    {
        FakeScreenLock screenLock;
        lockScreen(screenLock, [](const QString&, const QString&) { QFAIL("There is nothing to tell."); });
        screenLock.answer({});
    }

    void aFailureIsLoggedAsAnErrorOfTheSystemCategory()
    {
        static QByteArray category;
        static QtMsgType type = QtDebugMsg;
        FakeScreenLock screenLock;
        lockScreen(screenLock, [](const QString&, const QString&) {});
        const QtMessageHandler before
            = qInstallMessageHandler([](QtMsgType level, const QMessageLogContext& context, const QString&) {
                  category = context.category;
                  type = level;
              });
        screenLock.answer(u"reason"_s);
        qInstallMessageHandler(before);
        QCOMPARE(category, "com.morvanta.Tarvik.system");
        QCOMPARE(type, QtCriticalMsg);
    }
};

QTEST_GUILESS_MAIN(LockScreenTest)
#include "LockScreenTest.moc"
