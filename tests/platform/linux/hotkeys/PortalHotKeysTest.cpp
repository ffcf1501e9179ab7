// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/PortalHotKeys.h"

#include "fakes/FakePortal.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class PortalHotKeysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_pressed.clear();
        m_portal = std::make_unique<FakePortal>(m_services);
    }

    void cleanup()
    {
        m_registration.reset();
        m_hotKeys.reset();
        m_portal.reset();
    }

    void theFirstCallSaysWhoWeAre()
    {
        QVERIFY(m_portal->appear());
        start();
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"desktop portal"_s, HotKeyStatus::registered}));
        QCOMPARE(m_portal->calls,
            (QStringList{u"Registry.Register"_s,
                u"Properties.Get"_s,
                u"GlobalShortcuts.CreateSession"_s,
                u"GlobalShortcuts.BindShortcuts"_s}));
        QCOMPARE(m_portal->applicationId, u"com.morvanta.Tarvik"_s);
    }

    void theShortcutIsProposedWithItsPurpose()
    {
        QVERIFY(m_portal->appear());
        start();
        QTRY_COMPARE(m_portal->shortcuts.size(), 1);
        QCOMPARE(m_portal->shortcuts.constFirst().name, u"lock-screen"_s);
        QCOMPARE(m_portal->shortcuts.constFirst().properties,
            (QVariantMap{{u"description"_s, u"Lock the screen"_s}, {u"preferred_trigger"_s, u"LOGO+ALT+a"_s}}));
    }

    void anOldPortalWithoutTheRegistryIsUsedToo()
    {
        m_portal->knowsRegistry = false;
        QVERIFY(m_portal->appear());
        start();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::registered);
    }

    void aResponseMayComeBeforeTheAnswer()
    {
        m_portal->respondsBeforeItAnswers = true;
        QVERIFY(m_portal->appear());
        start();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::registered);
    }

    void aPortalWithoutShortcutsIsNotAvailable()
    {
        m_portal->version = 0;
        QVERIFY(m_portal->appear());
        start();
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"desktop portal"_s, HotKeyStatus::notAvailable}));
        QCOMPARE(m_portal->calls.last(), u"Properties.Get"_s);
    }

    void noPortalIsNotAvailableUntilOneAppears()
    {
        start();
        QCOMPARE(m_registration->state().status, HotKeyStatus::pending);
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::notAvailable);
        QVERIFY(m_portal->appear());
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::registered);
    }

    void theUsersRefusalOrAFailureIsNotAvailable_data()
    {
        QTest::addColumn<uint>("response");
        QTest::newRow("refused") << 1U;
        QTest::newRow("failed") << 2U;
    }

    void theUsersRefusalOrAFailureIsNotAvailable()
    {
        QFETCH(uint, response);
        m_portal->bindResponse = response;
        QVERIFY(m_portal->appear());
        start();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::notAvailable);
        QCOMPARE(m_portal->calls.last(), u"GlobalShortcuts.BindShortcuts"_s);
    }

    void aShortcutThatIsNotAmongTheBoundIsNotAvailable()
    {
        m_portal->bound = QStringList();
        QVERIFY(m_portal->appear());
        start();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::notAvailable);
    }

    void theShortcutIsPendingWhileTheUserIsAsked()
    {
        m_portal->isAskingTheUser = true;
        QVERIFY(m_portal->appear());
        start();
        QTRY_COMPARE(m_portal->shortcuts.size(), 1);
        QCOMPARE(m_registration->state().status, HotKeyStatus::pending);
        m_portal->respondToBinding();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::registered);
    }

    void aPressIsTold()
    {
        QVERIFY(m_portal->appear());
        start();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::registered);
        m_portal->press(u"lock-screen"_s);
        QTRY_COMPARE(m_pressed, QList<std::uint32_t>{3});
    }

    void pressesOfOtherShortcutsSessionsAndSendersAreIgnored()
    {
        QVERIFY(m_portal->appear());
        start();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::registered);
        m_portal->press(u"something else"_s);
        m_portal->press(u"lock-screen"_s, u"/org/freedesktop/portal/desktop/session/1_1/other"_s);
        FakePortal stranger(m_others);
        stranger.press(u"lock-screen"_s, m_portal->session);
        m_others.call(QDBusMessage::createMethodCall(
            u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"GetId"_s));
        m_portal->press(u"lock-screen"_s);
        QTRY_COMPARE(m_pressed, QList<std::uint32_t>{3});
    }

    void aSecondShortcutGetsAnotherSessionForBoth()
    {
        QVERIFY(m_portal->appear());
        start();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::registered);
        const QString first = m_portal->session;
        const auto second = m_hotKeys->registerHotKey({.id = 4,
            .keyCode = KeyCodes::ansiS,
            .modifiers = KeyModifiers::command,
            .purpose = {.name = u"second"_s, .description = u"Second"_s}});
        QTRY_COMPARE(second->state().status, HotKeyStatus::registered);
        QVERIFY(m_portal->session != first);
        QVERIFY(m_portal->calls.contains(u"Session.Close"_s));
        QCOMPARE(m_portal->shortcuts.size(), 2);
        QCOMPARE(m_portal->calls.count(u"Registry.Register"_s), 1);
        m_portal->press(u"second"_s);
        QTRY_COMPARE(m_pressed, QList<std::uint32_t>{4});
    }

    void theSessionIsClosedAtTheEnd()
    {
        QVERIFY(m_portal->appear());
        start();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::registered);
        m_registration.reset();
        m_hotKeys.reset();
        QTRY_COMPARE(m_portal->calls.last(), u"Session.Close"_s);
    }

    void anOpenQuestionIsWithdrawnAtTheEnd()
    {
        m_portal->isAskingTheUser = true;
        QVERIFY(m_portal->appear());
        start();
        QTRY_COMPARE(m_portal->shortcuts.size(), 1);
        m_registration.reset();
        m_hotKeys.reset();
        QTRY_VERIFY(m_portal->calls.contains(u"Request.Close"_s));
    }

    void aSessionThatThePortalClosesIsOver()
    {
        QVERIFY(m_portal->appear());
        start();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::registered);
        m_portal->closeSession();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::notAvailable);
    }

    void aPortalThatComesBackIsToldAgain()
    {
        QVERIFY(m_portal->appear());
        start();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::registered);
        m_portal->vanish();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::notAvailable);
        FakePortal next(m_others);
        QVERIFY(next.appear());
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::registered);
        QCOMPARE(next.calls.constFirst(), u"Registry.Register"_s);
        next.press(u"lock-screen"_s);
        QTRY_COMPARE(m_pressed, QList<std::uint32_t>{3});
    }

    void withoutABusThereIsNoShortcut()
    {
        PortalHotKeys hotKeys{QDBusConnection(u"nowhere"_s)};
        const auto registration = hotKeys.registerHotKey({.id = 1, .keyCode = 0, .modifiers = 0x900, .purpose = {}});
        QCOMPARE(registration->state().status, HotKeyStatus::notAvailable);
    }

private:
    void start()
    {
        m_hotKeys = std::make_unique<PortalHotKeys>(m_client);
        m_listening = m_hotKeys->pressed.subscribe([this](std::uint32_t id) { m_pressed.append(id); });
        m_registration = m_hotKeys->registerHotKey({.id = 3,
            .keyCode = KeyCodes::ansiA,
            .modifiers = KeyModifiers::command | KeyModifiers::option,
            .purpose = {.name = u"lock-screen"_s, .description = u"Lock the screen"_s}});
    }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
    QDBusConnection m_others = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"others"_s);
    std::unique_ptr<FakePortal> m_portal;
    std::unique_ptr<PortalHotKeys> m_hotKeys;
    std::unique_ptr<HotKeyRegistration> m_registration;
    QList<std::uint32_t> m_pressed;
    Subscription m_listening;
};

QTEST_GUILESS_MAIN(PortalHotKeysTest)
#include "PortalHotKeysTest.moc"
