// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/X11HotKeys.h"

#include "fakes/FakeClock.h"
#include "support/TestSupport.h"
#include "support/VirtualXServer.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>
#include <bit>
#include <chrono>
#include <cstdlib>
#include <vector>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class X11HotKeysTest : public QObject {
    Q_OBJECT

    static constexpr std::uint8_t keyA = 38;
    static constexpr std::uint8_t keyQ = 24;
    static constexpr std::uint8_t keyS = 39;
    static constexpr std::uint8_t altLeft = 64;
    static constexpr std::uint8_t capsLock = 66;
    static constexpr std::uint8_t numLock = 77;
    static constexpr std::uint8_t scrollLock = 78;
    static constexpr std::uint8_t superLeft = 133;
    static constexpr std::uint16_t superAlt = XCB_MOD_MASK_4 | XCB_MOD_MASK_1;

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(!QStandardPaths::findExecutable(u"Xvfb"_s).isEmpty());
        QVERIFY(!QStandardPaths::findExecutable(u"setxkbmap"_s).isEmpty());
        QVERIFY(!QStandardPaths::findExecutable(u"xmodmap"_s).isEmpty());
    }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_pressed.clear();
        m_server = std::make_unique<VirtualXServer>();
        QVERIFY(m_server->isRunning());
        m_user = std::make_unique<XClient>(*m_server);
        m_connection = X11Connection::open(m_server->display(), m_clock);
        m_hotKeys = std::make_unique<X11HotKeys>(m_connection);
        m_listening = m_hotKeys->pressed.subscribe([this](std::uint32_t id) { m_pressed.push_back(id); });
    }

    void cleanup()
    {
        m_registration.reset();
        m_hotKeys.reset();
        m_connection.reset();
        m_user.reset();
        m_server.reset();
    }

    void aServerThatIsNotThereGivesNoShortcuts()
    {
        for (const char* display : {":9876", "nonsense"}) {
            X11HotKeys hotKeys(X11Connection::open(display, m_clock));
            const auto early = hotKeys.registerHotKey(lock());
            QCOMPARE(early->state().status, HotKeyStatus::pending);
            QTRY_COMPARE(early->state().status, HotKeyStatus::notAvailable);
            QCOMPARE(hotKeys.registerHotKey(lock())->state().status, HotKeyStatus::notAvailable);
        }
    }

    void theShortcutIsPendingUntilTheServerHasGivenIt()
    {
        m_registration = m_hotKeys->registerHotKey(lock());
        QCOMPARE(m_registration->state(), (HotKeyState{u"X11"_s, HotKeyStatus::pending}));
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"X11"_s, HotKeyStatus::registered}));
    }

    void aChangeOfTheStateIsTold()
    {
        int changes = 0;
        const Subscription listening = m_hotKeys->stateChanged.subscribe([&] { ++changes; });
        m_registration = m_hotKeys->registerHotKey(lock());
        QTRY_COMPARE(changes, 1);
        QCOMPARE(m_registration->state().status, HotKeyStatus::registered);
    }

    void aShortcutThatNoKeyboardHasIsNotAvailable()
    {
        m_registration = m_hotKeys->registerHotKey({.id = 1, .keyCode = 127, .modifiers = 0x900, .purpose = {}});
        QCOMPARE(m_registration->state().status, HotKeyStatus::notAvailable);
    }

    void theShortcutFiresWithEveryCombinationOfLockKeys_data()
    {
        QTest::addColumn<std::vector<std::uint8_t>>("locks");
        using Keys = std::vector<std::uint8_t>;
        QTest::newRow("none") << Keys{};
        QTest::newRow("Caps") << Keys{capsLock};
        QTest::newRow("Num") << Keys{numLock};
        QTest::newRow("Scroll") << Keys{scrollLock};
        QTest::newRow("Caps and Num") << Keys{capsLock, numLock};
        QTest::newRow("Caps and Scroll") << Keys{capsLock, scrollLock};
        QTest::newRow("Num and Scroll") << Keys{numLock, scrollLock};
        QTest::newRow("all") << Keys{capsLock, numLock, scrollLock};
    }

    void theShortcutFiresWithEveryCombinationOfLockKeys()
    {
        QFETCH(std::vector<std::uint8_t>, locks);
        // Scroll Lock is no modifier by default.
        QVERIFY(runOnServer(u"xmodmap"_s, {u"-e"_s, u"add mod3 = Scroll_Lock"_s}));
        registerLock();
        QVERIFY(registered());
        for (const std::uint8_t key : locks) {
            m_user->press(key);
            m_user->release(key);
        }
        QCOMPARE(lockedModifiers(), locks.size());
        pressLock();
        QTRY_COMPARE(m_pressed, std::vector<std::uint32_t>{1});
    }

    void numLockOnAnotherModifierIsFound()
    {
        QVERIFY(runOnServer(u"xmodmap"_s, {u"-e"_s, u"clear mod2"_s, u"-e"_s, u"add mod5 = Num_Lock"_s}));
        registerLock();
        QVERIFY(registered());
        m_user->press(numLock);
        m_user->release(numLock);
        QCOMPARE(lockedModifiers(), 1U);
        pressLock();
        QTRY_COMPARE(m_pressed, std::vector<std::uint32_t>{1});
    }

    void otherKeysAndFewerOrMoreModifiersDoNotFire()
    {
        registerLock();
        QVERIFY(registered());
        constexpr std::uint8_t shiftLeft = 50;
        pressWith({}, keyA);
        pressWith({superLeft}, keyA);
        pressWith({altLeft}, keyA);
        pressWith({superLeft, altLeft, shiftLeft}, keyA);
        pressWith({superLeft, altLeft}, keyQ);
        // The one that counts comes last, and alone.
        pressLock();
        QTRY_COMPARE(m_pressed, std::vector<std::uint32_t>{1});
    }

    void eachShortcutFiresWithItsOwnId()
    {
        registerLock();
        const auto second = m_hotKeys->registerHotKey(otherKey());
        QVERIFY(registered());
        QTRY_COMPARE(second->state().status, HotKeyStatus::registered);
        pressWith({superLeft, altLeft}, keyS);
        QTRY_COMPARE(m_pressed, std::vector<std::uint32_t>{2});
        pressLock();
        QTRY_COMPARE(m_pressed, (std::vector<std::uint32_t>{2, 1}));
    }

    void theKeysAreFreeAfterTheEndOfTheRegistration()
    {
        registerLock();
        QVERIFY(registered());
        QVERIFY(!m_user->grab(keyA, superAlt));
        m_registration.reset();
        QTRY_VERIFY(m_user->grab(keyA, superAlt));
        pressLock();
        QVERIFY(letPressesArrive());
        QVERIFY(m_pressed.empty());
    }

    void whatAnotherProgramHoldsIsTaken_data()
    {
        QTest::addColumn<int>("modifiers");
        QTest::newRow("all of it") << int{XCB_MOD_MASK_ANY};
        QTest::newRow("the plain shortcut") << int{superAlt};
        QTest::newRow("only with Num Lock") << int{superAlt | XCB_MOD_MASK_2};
    }

    void whatAnotherProgramHoldsIsTaken()
    {
        QFETCH(int, modifiers);
        const auto other = static_cast<std::uint16_t>(modifiers);
        QVERIFY(m_user->grab(keyA, other));
        registerLock();
        QTRY_COMPARE(m_registration->state(), (HotKeyState{u"X11"_s, HotKeyStatus::taken}));
        QVERIFY(letUngrabsArrive());
        pressLock();
        m_user->press(numLock);
        m_user->release(numLock);
        pressLock();
        // The other one goes: nothing happens, until the keyboard changes or the shortcut is asked for again.
        m_user->ungrab(keyA, other);
        pressLock();
        QCOMPARE(m_registration->state().status, HotKeyStatus::taken);
        m_registration.reset();
        registerLock();
        QVERIFY(registered());
        QVERIFY(m_pressed.empty());
        pressLock();
        QTRY_COMPARE(m_pressed, std::vector<std::uint32_t>{1});
    }

    void anotherKeyboardLayoutIsFollowed()
    {
        registerLock();
        QVERIFY(registered());
        QVERIFY(runOnServer(u"setxkbmap"_s, {u"fr"_s}));
        // The letter has changed places with "q".
        QVERIFY(QTest::qWaitFor([this] { return pressesReach(keyQ); }, patience));
        QVERIFY(letPressesArrive());
        m_pressed.clear();
        pressWith({superLeft, altLeft}, keyA);
        QVERIFY(letPressesArrive());
        QVERIFY(m_pressed.empty());
        QVERIFY(runOnServer(u"setxkbmap"_s, {u"us"_s}));
        QVERIFY(QTest::qWaitFor([this] { return pressesReach(keyA); }, patience));
    }

    void aLayoutWithoutTheLetterHasTheShortcutInItsPlace()
    {
        registerLock();
        QVERIFY(registered());
        QVERIFY(runOnServer(u"setxkbmap"_s, {u"ru"_s}));
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::registered);
        QVERIFY(QTest::qWaitFor([this] { return pressesReach(keyA); }, patience));
    }

    void aShortcutThatWasTakenIsTriedAgainWhenTheKeyboardChanges()
    {
        QVERIFY(m_user->grab(keyA, superAlt));
        registerLock();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::taken);
        m_user->ungrab(keyA, superAlt);
        QVERIFY(runOnServer(u"xmodmap"_s, {u"-e"_s, u"keycode 200 = F20"_s}));
        QVERIFY(registered());
    }

    void aKeyThatIsHeldFiresOnce()
    {
        using namespace std::chrono_literals;
        using Clock = std::chrono::steady_clock;
        registerLock();
        const auto end = m_hotKeys->registerHotKey(otherKey());
        QVERIFY(registered());
        m_user->press(superLeft);
        m_user->press(altLeft);
        // A server that does not get its turn in time makes another press of a repetition.
        std::size_t late = 0;
        auto last = Clock::now();
        const auto countLate
            = [&](Clock::time_point since) { late += static_cast<std::size_t>((Clock::now() - since) / 690ms); };
        const auto pressLater = [&](std::uint32_t delay) {
            last = Clock::now() + std::chrono::milliseconds(delay);
            m_user->pressLater(keyA, delay);
        };
        m_user->press(keyA);
        // As the keyboard repeats it: first after a longer time.
        for (const std::uint32_t delay : {500, 200, 200, 200, 200, 200}) {
            const auto before = last;
            pressLater(delay);
            countLate(before);
        }
        m_user->release(keyA);
        countLate(last);
        pressLater(800);
        m_user->release(keyA);
        countLate(last);
        m_user->press(keyS);
        QTRY_VERIFY(std::ranges::count(m_pressed, 2U) == 1);
        const auto fired = static_cast<std::size_t>(std::ranges::count(m_pressed, 1U));
        QVERIFY2(fired >= 2 && fired <= 2 + late, qPrintable(u"%1 of which %2 may be late"_s.arg(fired).arg(late)));
        for (const std::uint8_t key : {keyS, altLeft, superLeft})
            m_user->release(key);
    }

    void anotherProgramMayHaveTheKeyboardWhileTheKeyIsHeld()
    {
        registerLock();
        QVERIFY(registered());
        for (const std::uint8_t key : {superLeft, altLeft, keyA})
            m_user->press(key);
        QTRY_COMPARE(m_pressed.size(), 1U);
        // As a screen locker does.
        QTRY_VERIFY(grabKeyboard());
        for (const std::uint8_t key : {keyA, altLeft, superLeft})
            m_user->release(key);
    }

    void aKeyPressThatAProgramSendsIsIgnored()
    {
        registerLock();
        QVERIFY(registered());
        xcb_key_press_event_t event{};
        event.response_type = XCB_KEY_PRESS;
        event.detail = keyA;
        event.state = superAlt;
        event.root = m_user->root();
        event.event = m_user->root();
        xcb_send_event(
            m_user->connection(), 0, m_user->root(), XCB_EVENT_MASK_KEY_PRESS, reinterpret_cast<char*>(&event));
        m_user->settle();
        pressLock();
        QTRY_COMPARE(m_pressed.size(), 1U);
    }

    void losingTheServerIsSilentAndLeavesNoShortcut()
    {
        registerLock();
        QVERIFY(registered());
        m_server->kill();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::notAvailable);
        const auto late = m_hotKeys->registerHotKey(lock());
        QCOMPARE(late->state().status, HotKeyStatus::notAvailable);
    }

    void aServerThatIsBackGivesTheShortcutsAgain()
    {
        registerLock();
        QVERIFY(registered());
        m_server->kill();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::notAvailable);
        // Asked for while there is no server.
        const auto late = m_hotKeys->registerHotKey(otherKey());
        const auto impossible = m_hotKeys->registerHotKey({.id = 3, .keyCode = 127, .modifiers = 0x900, .purpose = {}});
        m_server = std::make_unique<VirtualXServer>();
        QVERIFY(m_server->isRunning());
        QList<HotKeyStatus> told;
        const Subscription listening
            = m_hotKeys->stateChanged.subscribe([&] { told.append(m_registration->state().status); });
        m_clock.advance(Seconds{1});
        QCOMPARE(m_registration->state().status, HotKeyStatus::pending);
        QVERIFY(registered());
        QVERIFY(!told.isEmpty());
        QCOMPARE(told.last(), HotKeyStatus::registered);
        QCOMPARE(late->state().status, HotKeyStatus::registered);
        QCOMPARE(impossible->state().status, HotKeyStatus::notAvailable);
        m_user = std::make_unique<XClient>(*m_server);
        pressLock();
        QTRY_COMPARE(m_pressed, std::vector<std::uint32_t>{1});
        pressWith({superLeft, altLeft}, keyS);
        QTRY_COMPARE(m_pressed, (std::vector<std::uint32_t>{1, 2}));
    }

    void aServerThatIsLostUnnoticedDoesNoHarm()
    {
        registerLock();
        QVERIFY(registered());
        m_server->kill();
        // Written to the closed connection before the end of it has been seen.
        m_registration.reset();
        registerLock();
        QTRY_COMPARE(m_registration->state().status, HotKeyStatus::notAvailable);
    }

    void aServerThatDoesNotAnswerBlocksNothing()
    {
        QTRY_VERIFY(m_connection->get() != nullptr);
        QCOMPARE(::kill(m_server->processId(), SIGSTOP), 0);
        QElapsedTimer timer;
        timer.start();
        registerLock();
        QCoreApplication::processEvents();
        m_registration.reset();
        registerLock();
        QCoreApplication::processEvents();
        QVERIFY(timer.elapsed() < 1000);
        QCOMPARE(m_registration->state().status, HotKeyStatus::pending);
        QCOMPARE(::kill(m_server->processId(), SIGCONT), 0);
        QVERIFY(registered());
    }

private:
    static HotKeyRequest lock()
    {
        return {.id = 1,
            .keyCode = KeyCodes::ansiA,
            .modifiers = KeyModifiers::command | KeyModifiers::option,
            .purpose = {}};
    }

    static HotKeyRequest otherKey()
    {
        return {.id = 2,
            .keyCode = KeyCodes::ansiS,
            .modifiers = KeyModifiers::command | KeyModifiers::option,
            .purpose = {}};
    }

    void registerLock() { m_registration = m_hotKeys->registerHotKey(lock()); }

    bool registered()
    {
        return QTest::qWaitFor([this] { return m_registration->state().status == HotKeyStatus::registered; }, patience);
    }

    void pressWith(const std::vector<std::uint8_t>& modifiers, std::uint8_t key) const
    {
        for (const std::uint8_t modifier : modifiers)
            m_user->press(modifier);
        m_user->press(key);
        m_user->release(key);
        for (const std::uint8_t modifier : modifiers)
            m_user->release(modifier);
    }

    void pressLock() const { pressWith({superLeft, altLeft}, keyA); }

    /// Presses the shortcut at `key` once and says whether that has been told.
    bool pressesReach(std::uint8_t key)
    {
        m_pressed.clear();
        pressWith({superLeft, altLeft}, key);
        return QTest::qWaitFor([this] { return !m_pressed.empty(); }, 100);
    }

    /// What the server has given of a shortcut that is taken is given back by now.
    bool letUngrabsArrive()
    {
        bool isAnswered = false;
        const auto reply = m_connection->await(
            xcb_get_input_focus(m_connection->get()).sequence, [&](const void*) { isAnswered = true; });
        m_connection->send();
        return QTest::qWaitFor([&] { return isAnswered; }, patience);
    }

    /// Whatever the server has told so far comes before what it answers now.
    bool letPressesArrive()
    {
        const auto other = m_hotKeys->registerHotKey(otherKey());
        return QTest::qWaitFor([&] { return other->state().status == HotKeyStatus::registered; }, patience);
    }

    unsigned int lockedModifiers() const
    {
        auto* const reply = xcb_query_pointer_reply(
            m_user->connection(), xcb_query_pointer(m_user->connection(), m_user->root()), nullptr);
        const auto count = static_cast<unsigned int>(std::popcount(reply->mask & 0xffU));
        std::free(reply);
        return count;
    }

    bool grabKeyboard() const
    {
        auto* const reply = xcb_grab_keyboard_reply(m_user->connection(),
            xcb_grab_keyboard(
                m_user->connection(), 0, m_user->root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
            nullptr);
        const bool isGranted = reply->status == XCB_GRAB_STATUS_SUCCESS;
        std::free(reply);
        return isGranted;
    }

    bool runOnServer(const QString& program, QStringList arguments) const
    {
        arguments.prepend(QString::fromLatin1(m_server->display()));
        arguments.prepend(u"-display"_s);
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(program, arguments);
        return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    }

    FakeClock m_clock;
    std::shared_ptr<X11Connection> m_connection;
    std::unique_ptr<VirtualXServer> m_server;
    std::unique_ptr<XClient> m_user;
    std::unique_ptr<X11HotKeys> m_hotKeys;
    std::unique_ptr<HotKeyRegistration> m_registration;
    std::vector<std::uint32_t> m_pressed;
    Subscription m_listening;
};

QTEST_GUILESS_MAIN(X11HotKeysTest)
#include "X11HotKeysTest.moc"
