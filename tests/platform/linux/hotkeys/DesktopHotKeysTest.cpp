// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/DesktopHotKeys.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeKGlobalAccel.h"
#include "fakes/FakePortal.h"
#include "platform/linux/x11/X11Connection.h"
#include "support/GnomeShortcutSchemas.h"
#include "support/TestSupport.h"
#include "support/VirtualXServer.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class DesktopHotKeysTest : public QObject {
    Q_OBJECT

    static constexpr std::uint8_t keyA = 38;
    static constexpr std::uint16_t superAlt = XCB_MOD_MASK_4 | XCB_MOD_MASK_1;

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_schemas.isReady());
        QVERIFY(m_server.isRunning());
    }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_pressed.clear();
    }

    void cleanup()
    {
        m_registration.reset();
        m_hotKeys.reset();
    }

    void theShortcutIsPendingUntilTheBusHasAnswered()
    {
        start({});
        QCOMPARE(m_registration->state(), (HotKeyState{QString(), HotKeyStatus::pending}));
        QTRY_COMPARE(m_registration->state(), (HotKeyState{QString(), HotKeyStatus::notAvailable}));
    }

    void kGlobalAccelComesFirst()
    {
        FakeKGlobalAccel kde(m_services);
        FakePortal portal(m_others);
        QVERIFY(kde.appear());
        QVERIFY(portal.appear());
        start({.x11 = x11(), .isWayland = true});
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"KGlobalAccel"_s, HotKeyStatus::registered}));
        QVERIFY(portal.calls.isEmpty());
        kde.press(u"lock-screen"_s);
        QTRY_COMPARE(m_pressed, QList<std::uint32_t>{1});
    }

    void anX11SessionGetsAKeyGrab()
    {
        FakePortal portal(m_others);
        QVERIFY(portal.appear());
        start({.x11 = x11()});
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"X11"_s, HotKeyStatus::registered}));
        QVERIFY(portal.calls.isEmpty());
    }

    void aWaylandSessionGetsThePortalAndNotItsXServer()
    {
        FakePortal portal(m_others);
        QVERIFY(portal.appear());
        start({.x11 = x11(), .isWayland = true});
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"desktop portal"_s, HotKeyStatus::registered}));
        portal.press(u"lock-screen"_s);
        QTRY_COMPARE(m_pressed, QList<std::uint32_t>{1});
        const XClient other(m_server);
        QVERIFY(other.grab(keyA, superAlt));
    }

    void gnomeWhosePortalHasNoShortcutsGetsACustomOne()
    {
        FakePortal portal(m_others);
        portal.version = 0;
        QVERIFY(portal.appear());
        start({.x11 = x11(), .isWayland = true});
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"desktop portal"_s, HotKeyStatus::notAvailable}));
        const GnomeDesktop gnome(m_services);
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"GNOME's custom shortcuts"_s, HotKeyStatus::registered}));
        QVERIFY(m_services.unregisterService(mediaKeys));
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"desktop portal"_s, HotKeyStatus::notAvailable}));
    }

    void gnomeWhosePortalHasShortcutsGetsThePortals()
    {
        FakePortal portal(m_others);
        QVERIFY(portal.appear());
        const GnomeDesktop gnome(m_services);
        start({.x11 = {}, .isWayland = true});
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"desktop portal"_s, HotKeyStatus::registered}));
    }

    void gnomeUnderX11GetsACustomShortcutAndNoKeyGrab()
    {
        const GnomeDesktop gnome(m_services);
        start({.x11 = x11()});
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"GNOME's custom shortcuts"_s, HotKeyStatus::registered}));
        const XClient other(m_server);
        QVERIFY(other.grab(keyA, superAlt));
    }

    void gnomeThatAppearsLaterTakesTheShortcutFromTheXServer()
    {
        start({.x11 = x11()});
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"X11"_s, HotKeyStatus::registered}));
        {
            const GnomeDesktop gnome(m_services);
            QTRY_COMPARE(
                m_registration->state(), (HotKeyState{u"GNOME's custom shortcuts"_s, HotKeyStatus::registered}));
            const XClient other(m_server);
            QTRY_VERIFY(other.grab(keyA, superAlt));
        }
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"X11"_s, HotKeyStatus::registered}));
    }

    void aMediaKeysDaemonWithoutGnomesShellIsNotGnome()
    {
        QVERIFY(m_services.registerService(mediaKeys));
        start({.x11 = x11()});
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"X11"_s, HotKeyStatus::registered}));
        QVERIFY(m_services.unregisterService(mediaKeys));
    }

    void gnomeThatTakesNoShortcutLeavesTheXServer()
    {
        const GnomeDesktop gnome(m_services);
        m_hotKeys = std::make_unique<DesktopHotKeys>(m_client, DesktopHotKeys::Display{.x11 = x11()});
        HotKeyRequest unknown = lock();
        unknown.keyCode = 0xFFFF;
        m_registration = m_hotKeys->registerHotKey(unknown);
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"X11"_s, HotKeyStatus::notAvailable}));
    }

    void anXServerThatCannotBeReachedGivesNone()
    {
        start({.x11 = X11Connection::open(":9876", m_clock)});
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"X11"_s, HotKeyStatus::notAvailable}));
    }

    void withoutABusTheXServerIsUsed()
    {
        start({.x11 = x11()}, QDBusConnection(u"nowhere"_s));
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"X11"_s, HotKeyStatus::registered}));
    }

    void withoutABusUnderWaylandThereIsNone()
    {
        start({.x11 = x11(), .isWayland = true}, QDBusConnection(u"nowhere"_s));
        QCOMPARE(m_registration->state(), (HotKeyState{QString(), HotKeyStatus::notAvailable}));
    }

    void kGlobalAccelThatAppearsLaterTakesOver()
    {
        start({.x11 = x11()});
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"X11"_s, HotKeyStatus::registered}));
        FakeKGlobalAccel kde(m_services);
        QVERIFY(kde.appear());
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"KGlobalAccel"_s, HotKeyStatus::registered}));
        const XClient other(m_server);
        QTRY_VERIFY(other.grab(keyA, superAlt));
        kde.press(u"lock-screen"_s);
        QTRY_COMPARE(m_pressed, QList<std::uint32_t>{1});
    }

    void kGlobalAccelThatGoesLeavesTheXServer()
    {
        FakeKGlobalAccel kde(m_services);
        QVERIFY(kde.appear());
        start({.x11 = x11()});
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"KGlobalAccel"_s, HotKeyStatus::registered}));
        kde.vanish();
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"X11"_s, HotKeyStatus::registered}));
    }

    void anotherKGlobalAccelIsToldOfTheShortcut()
    {
        FakeKGlobalAccel kde(m_services);
        QVERIFY(kde.appear());
        start({});
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"KGlobalAccel"_s, HotKeyStatus::registered}));
        kde.vanish();
        FakeKGlobalAccel next(m_others);
        QVERIFY(next.appear());
        QTRY_COMPARE(next.active.size(), 2);
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"KGlobalAccel"_s, HotKeyStatus::registered}));
        next.press(u"lock-screen"_s);
        QTRY_COMPARE(m_pressed, QList<std::uint32_t>{1});
    }

    void everyChangeOfTheStateIsTold()
    {
        QList<HotKeyState> states;
        m_hotKeys = std::make_unique<DesktopHotKeys>(m_client, DesktopHotKeys::Display{});
        const Subscription listening
            = m_hotKeys->stateChanged.subscribe([&] { states.append(m_registration->state()); });
        m_registration = m_hotKeys->registerHotKey(lock());
        QTRY_COMPARE(states.size(), 1);
        FakeKGlobalAccel kde(m_services);
        QVERIFY(kde.appear());
        QTRY_COMPARE(states.size(), 3);
        QCOMPARE(states,
            (QList<HotKeyState>{{QString(), HotKeyStatus::notAvailable},
                {u"KGlobalAccel"_s, HotKeyStatus::pending},
                {u"KGlobalAccel"_s, HotKeyStatus::registered}}));
    }

private:
    static inline const QString mediaKeys = u"org.gnome.SettingsDaemon.MediaKeys"_s;

    /// The names by which GNOME is known, from its construction to its destruction.
    struct GnomeDesktop {
        explicit GnomeDesktop(const QDBusConnection& connection)
            : bus(connection)
        {
            for (const QString& name : names)
                bus.registerService(name);
        }
        ~GnomeDesktop()
        {
            for (const QString& name : names)
                bus.unregisterService(name);
        }
        GnomeDesktop(const GnomeDesktop&) = delete;
        GnomeDesktop& operator=(const GnomeDesktop&) = delete;

        static inline const QStringList names{mediaKeys, u"org.gnome.Shell"_s};
        QDBusConnection bus;
    };

    static HotKeyRequest lock()
    {
        return {.id = 1,
            .keyCode = KeyCodes::ansiA,
            .modifiers = KeyModifiers::command | KeyModifiers::option,
            .purpose = {.name = u"lock-screen"_s, .description = u"Lock the screen"_s}};
    }

    std::shared_ptr<X11Connection> x11() { return X11Connection::open(m_server.display(), m_clock); }

    void start(const DesktopHotKeys::Display& display) { start(display, m_client); }
    void start(const DesktopHotKeys::Display& display, const QDBusConnection& bus)
    {
        m_hotKeys = std::make_unique<DesktopHotKeys>(bus, display);
        m_listening = m_hotKeys->pressed.subscribe([this](std::uint32_t id) { m_pressed.append(id); });
        m_registration = m_hotKeys->registerHotKey(lock());
    }

    FakeClock m_clock;
    GnomeShortcutSchemas m_schemas;
    VirtualXServer m_server;
    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
    QDBusConnection m_others = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"others"_s);
    std::unique_ptr<DesktopHotKeys> m_hotKeys;
    std::unique_ptr<HotKeyRegistration> m_registration;
    QList<std::uint32_t> m_pressed;
    Subscription m_listening;
};

QTEST_GUILESS_MAIN(DesktopHotKeysTest)
#include "DesktopHotKeysTest.moc"
