// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hotkey/HotKey.h"

#include "fakes/FakeHotKeys.h"
#include "hotkey/HotKeyCenter.h"
#include "support/TestSupport.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <limits>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class HotKeyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_center.reset();
        m_hotKeys = std::make_unique<FakeHotKeys>();
        m_center = std::make_unique<HotKeyCenter>(*m_hotKeys);
        m_first = 0;
        m_second = 0;
    }

    void theRegistrationIsMadeInCarbonsTerms()
    {
        const auto hotKey = make(KeyCodes::ansiA, KeyModifiers::command | KeyModifiers::option, m_first);
        QCOMPARE(m_hotKeys->registered.size(), 1);
        const HotKeyRequest& request = m_hotKeys->registered.constFirst();
        QCOMPARE(request.keyCode, 0U);
        QCOMPARE(request.modifiers, 0x900U);
        QCOMPARE(request.id, hotKey->id());
        QCOMPARE(request.purpose, purpose);
    }

    void twoInstancesGetTheIdsOneAndTwo()
    {
        const auto first = make(KeyCodes::ansiA, KeyModifiers::command, m_first);
        const auto second = make(KeyCodes::ansiS, KeyModifiers::command, m_second);
        QCOMPARE(first->id(), 1U);
        QCOMPARE(second->id(), 2U);
    }

    void pressingTheSecondInstancesKeysRunsOnlyTheSecondHandler()
    {
        const auto first = make(KeyCodes::ansiA, KeyModifiers::command, m_first);
        const auto second = make(KeyCodes::ansiS, KeyModifiers::command, m_second);
        m_hotKeys->press(KeyCodes::ansiS, KeyModifiers::command);
        QCOMPARE(m_first, 0);
        QCOMPARE(m_second, 1);
    }

    void idsAreNeverGivenTwice()
    {
        auto hotKey = make(KeyCodes::ansiA, KeyModifiers::command, m_first);
        hotKey.reset();
        hotKey = make(KeyCodes::ansiA, KeyModifiers::command, m_first);
        QCOMPARE(hotKey->id(), 2U);
    }

    void theKeysOfADestroyedInstanceDoNothing()
    {
        auto first = make(KeyCodes::ansiA, KeyModifiers::command, m_first);
        const auto second = make(KeyCodes::ansiS, KeyModifiers::command, m_second);
        first.reset();
        QCOMPARE(m_hotKeys->registered.size(), 1);
        m_hotKeys->press(KeyCodes::ansiA, KeyModifiers::command);
        // The desktop may have sent a press before it heard of the end.
        m_hotKeys->pressed(1);
        QCOMPARE(m_first, 0);
        m_hotKeys->press(KeyCodes::ansiS, KeyModifiers::command);
        QCOMPARE(m_second, 1);
    }

    void aPressWithAnUnknownIdDoesNothing()
    {
        const auto hotKey = make(KeyCodes::ansiA, KeyModifiers::command, m_first);
        m_hotKeys->pressed(0);
        m_hotKeys->pressed(77);
        m_hotKeys->pressed(std::numeric_limits<std::uint32_t>::max());
        QCOMPARE(m_first, 0);
    }

    void aShortcutThatIsTakenNeverFiresAndSaysNothing()
    {
        m_hotKeys->state.status = HotKeyStatus::taken;
        const auto hotKey = make(KeyCodes::ansiA, KeyModifiers::command, m_first);
        QCOMPARE(hotKey->state(), (HotKeyState{u"fake"_s, HotKeyStatus::taken}));
        QCOMPARE(m_first, 0);
    }

    void aHandlerMayDestroyItsOwnShortcut()
    {
        auto pressed = std::make_shared<int>(0);
        std::unique_ptr<HotKey> hotKey;
        hotKey = std::make_unique<HotKey>(
            *m_center,
            KeyCodes::ansiA,
            KeyModifiers::command,
            [&hotKey, pressed] {
                hotKey.reset();
                ++*pressed;
            },
            purpose);
        m_hotKeys->press(KeyCodes::ansiA, KeyModifiers::command);
        QCOMPARE(*pressed, 1);
        QVERIFY(m_hotKeys->registered.isEmpty());
    }

    void runningOutOfIdsIsFatal()
    {
        const pid_t child = fork();
        if (child == 0) {
            const rlimit noCore{0, 0};
            setrlimit(RLIMIT_CORE, &noCore);
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
            signal(SIGABRT, SIG_DFL);
            FakeHotKeys hotKeys;
            HotKeyCenter center(hotKeys, std::numeric_limits<std::uint32_t>::max() - 1);
            const auto make = [&] { return HotKey(center, KeyCodes::ansiA, KeyModifiers::command, {}, purpose).id(); };
            if (make() != std::numeric_limits<std::uint32_t>::max() - 1)
                _exit(1);
            make();
            _exit(0);
        }
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY(WIFSIGNALED(status));
        QCOMPARE(WTERMSIG(status), SIGABRT);
    }

private:
    static inline const HotKeyPurpose purpose{u"count"_s, u"Count the presses"_s};

    std::unique_ptr<HotKey> make(std::uint32_t keyCode, std::uint32_t modifiers, int& count)
    {
        return std::make_unique<HotKey>(
            *m_center, keyCode, modifiers, [&count] { ++count; }, purpose);
    }

    std::unique_ptr<FakeHotKeys> m_hotKeys;
    std::unique_ptr<HotKeyCenter> m_center;
    int m_first = 0;
    int m_second = 0;
};

QTEST_GUILESS_MAIN(HotKeyTest)
#include "HotKeyTest.moc"
