// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/KGlobalAccelHotKeys.h"

#include "fakes/FakeKGlobalAccel.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class KGlobalAccelHotKeysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_pressed.clear();
        m_kde = std::make_unique<FakeKGlobalAccel>(m_services);
        QVERIFY(m_kde->appear());
        m_hotKeys = std::make_unique<KGlobalAccelHotKeys>(m_client, m_services.baseService());
        m_listening = m_hotKeys->pressed.subscribe([this](std::uint32_t id) { m_pressed.append(id); });
    }

    void cleanup()
    {
        m_registration.reset();
        m_hotKeys.reset();
        m_kde.reset();
    }

    void theDefaultIsSetAndThenTheUsersChoiceIsAskedFor()
    {
        registerLock();
        QCOMPARE(m_registration->state(), (HotKeyState{u"KGlobalAccel"_s, HotKeyStatus::pending}));
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"KGlobalAccel"_s, HotKeyStatus::registered}));
        const auto action = u"com.morvanta.Tarvik, lock-screen, Tarvik, Lock the screen"_s;
        QCOMPARE(m_kde->calls,
            (QStringList{u"doRegister(%1)"_s.arg(action),
                u"setShortcut(%1) 402653249 8"_s.arg(action),
                u"setShortcut(%1) 402653249 2"_s.arg(action)}));
    }

    void aPressIsTold()
    {
        registerLock();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::registered);
        m_kde->press(u"lock-screen"_s);
        QTRY_COMPARE(m_pressed, QList<std::uint32_t>{7});
    }

    void pressesOfOtherActionsOthersAndStrangersAreIgnored()
    {
        registerLock();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::registered);
        m_kde->press(u"something else"_s);
        m_kde->press(u"lock-screen"_s, u"kwin"_s);
        FakeKGlobalAccel stranger(m_others);
        stranger.press(u"lock-screen"_s);
        auto signal = QDBusMessage::createSignal(
            u"/component/com_morvanta_Tarvik"_s, u"org.kde.kglobalaccel.Component"_s, u"globalShortcutPressed"_s);
        signal.setArguments({u"com.morvanta.Tarvik"_s});
        m_services.send(signal);
        // The stranger's signal is through when the bus has answered it.
        m_others.call(QDBusMessage::createMethodCall(
            u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"GetId"_s));
        m_kde->press(u"lock-screen"_s);
        QTRY_COMPARE(m_pressed, QList<std::uint32_t>{7});
    }

    void noKeysInTheAnswerMeansTaken()
    {
        m_kde->isTaken = true;
        int changes = 0;
        const Subscription listening = m_hotKeys->stateChanged.subscribe([&] { ++changes; });
        registerLock();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::taken);
        QCOMPARE(changes, 1);
    }

    void aRefusalMeansNotAvailable()
    {
        m_kde->refuses = true;
        registerLock();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::notAvailable);
    }

    void theActionIsInactiveAfterTheEndOfTheRegistration()
    {
        registerLock();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::registered);
        m_registration.reset();
        QTRY_COMPARE(m_kde->calls.last(), u"setInactive(com.morvanta.Tarvik, lock-screen, Tarvik, Lock the screen)"_s);
        QVERIFY(m_kde->active.isEmpty());
    }

    void anEndBeforeTheAnswerStillLeavesTheActionInactive()
    {
        m_kde->isSlow = true;
        registerLock();
        m_registration.reset();
        letItArrive();
        m_kde->answerNow();
        QTRY_COMPARE(m_kde->calls.size(), 4);
        QVERIFY(m_kde->active.isEmpty());
    }

    void aShortcutThatKdeCannotKeepIsNotAskedFor()
    {
        m_registration = m_hotKeys->registerHotKey({.id = 7, .keyCode = 127, .modifiers = 0x900, .purpose = {}});
        QCOMPARE(m_registration->state().status, HotKeyStatus::notAvailable);
        letItArrive();
        QVERIFY(m_kde->calls.isEmpty());
    }

private:
    void registerLock()
    {
        m_registration = m_hotKeys->registerHotKey({.id = 7,
            .keyCode = KeyCodes::ansiA,
            .modifiers = KeyModifiers::command | KeyModifiers::option,
            .purpose = {.name = u"lock-screen"_s, .description = u"Lock the screen"_s}});
    }

    /// Lets what has been sent arrive.
    void letItArrive()
    {
        m_client.call(QDBusMessage::createMethodCall(
                          u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"GetId"_s),
            QDBus::BlockWithGui);
        QCoreApplication::processEvents();
    }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
    QDBusConnection m_others = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"others"_s);
    std::unique_ptr<FakeKGlobalAccel> m_kde;
    std::unique_ptr<KGlobalAccelHotKeys> m_hotKeys;
    std::unique_ptr<HotKeyRegistration> m_registration;
    QList<std::uint32_t> m_pressed;
    Subscription m_listening;
};

QTEST_GUILESS_MAIN(KGlobalAccelHotKeysTest)
#include "KGlobalAccelHotKeysTest.moc"
