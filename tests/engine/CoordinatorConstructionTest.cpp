// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "CoordinatedMachine.h"

#include "support/TestSupport.h"

#include <QFile>
#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

class ObservedHotKeys final : public HotKeys {
public:
    explicit ObservedHotKeys(std::function<void()> onRegistration)
        : m_onRegistration(std::move(onRegistration))
    {
    }

    std::unique_ptr<HotKeyRegistration> registerHotKey(const HotKeyRequest& request) override
    {
        m_onRegistration();
        return m_hotKeys.registerHotKey(request);
    }

private:
    std::function<void()> m_onRegistration;
    FakeHotKeys m_hotKeys;
};

class ObservedNotifications final : public UserNotifications {
public:
    explicit ObservedNotifications(std::function<void()> onRequest)
        : m_onRequest(std::move(onRequest))
    {
    }

    void requestAuthorization(std::function<void(bool, const QString&)>) override { m_onRequest(); }
    void post(const QString&, const QString&, const QString&, std::function<void(const QString&)>) override { }

private:
    std::function<void()> m_onRequest;
};

class ObservedAssertions final : public PowerAssertions {
public:
    explicit ObservedAssertions(std::function<void()> onCreation)
        : m_onCreation(std::move(onCreation))
    {
    }

    std::unique_ptr<PowerAssertion> create(PowerAssertionType type, const QString& name) override
    {
        m_onCreation();
        return m_assertions.create(type, name);
    }
    QList<PowerAssertionHold> holds() const override { return m_assertions.holds(); }

private:
    std::function<void()> m_onCreation;
    FakePowerAssertions m_assertions;
};

} // namespace

class CoordinatorConstructionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m = std::make_unique<CoordinatedMachine>();
    }

    void workThatRunsAtStartIsHeldByTheFirstEvaluation()
    {
        m->processTable.output = "claude\n";
        m->start();
        QVERIFY(m->coordinator->isAwake());
        QCOMPARE(m->assertions.calls, QStringList{u"create PreventUserIdleSystemSleep Tarvik"_s});
        QCOMPARE(m->journalLines(), QStringList{u"on: Awake · 1 agent"_s});
    }

    void theLoginItemIsMirrored()
    {
        m->loginItem.enabled = true;
        m->start();
        QVERIFY(m->settings->launchAtLogin());
    }

    void theLoginItemIsFollowed()
    {
        m->start();
        m->loginItem.enable(true);
        QVERIFY(m->settings->launchAtLogin());
        m->loginItem.enable(false);
        QVERIFY(!m->settings->launchAtLogin());
    }

    void whatTheLoginItemSaysIsNoChangeOfASetting()
    {
        m->loginItem.enabled = true;
        m->start();
        const QSignalSpy evaluated(&*m->coordinator, &AwakeCoordinator::evaluated);
        CoordinatedMachine::settle();
        QCOMPARE(evaluated.count(), 0);
        m->settings->setKeepDisplayAwake(true);
        CoordinatedMachine::settle();
        QCOMPARE(evaluated.count(), 1);
    }

    void theStepsComeInOrder()
    {
        QVERIFY(HookFiles(m->home.path(), u"/somewhere/else/tarvik"_s).install(HookSpec::all.front()));
        m->processTable.output = "codex\n";
        m->loginItem.enabled = true;
        expectLog(QtInfoMsg, u"^hook config out of date for claude; rewriting$"_s);
        m->start();
        m->coordinator.reset();
        m->settings->setLaunchAtLogin(false);
        QVERIFY(HookFiles(m->home.path(), u"/somewhere/else/tarvik"_s).install(HookSpec::all.front()));

        const auto stage = [this] {
            QFile file(m->home.filePath(u".claude/settings.json"_s));
            const bool isOpen = file.open(QIODevice::ReadOnly);
            return QStringList{m->settings->launchAtLogin() ? u"login item read"_s : u"login item unread"_s,
                m->process->onChange ? u"listening"_s : u"deaf"_s,
                isOpen && file.readAll().contains("/opt/tarvik") ? u"hooks fresh"_s : u"hooks stale"_s}
                .join(u", "_s);
        };
        QStringList order;
        ObservedHotKeys hotKeys([&] { order.append(u"shortcut: "_s + stage()); });
        HotKeyCenter hotKeyCenter(hotKeys);
        ObservedNotifications notifications([&] { order.append(u"permission: "_s + stage()); });
        ObservedAssertions assertions([&] { order.append(u"evaluation: "_s + stage()); });
        expectLog(QtInfoMsg, u"^hook config out of date for claude; rewriting$"_s);
        const AwakeCoordinator coordinator(
            {*m->settings, *m->power, *m->process, *m->thermal, *m->journal, *m->hooks, *m->lidClosed},
            {assertions, m->loginItem, notifications, hotKeyCenter, m->screenLock, m->clock},
            m->hookFiles);
        QCOMPARE(order,
            (QStringList{u"shortcut: login item read, listening, hooks stale"_s,
                u"permission: login item read, listening, hooks stale"_s,
                u"evaluation: login item read, listening, hooks fresh"_s}));
    }

    void permissionIsAskedForOnlyWhenANotificationIsOn()
    {
        m->start();
        QCOMPARE(m->notifications.authorizationRequests, 1);

        m = std::make_unique<CoordinatedMachine>();
        m->store.values[u"notifyOnPause"_s] = false;
        m->start();
        QCOMPARE(m->notifications.authorizationRequests, 0);

        m = std::make_unique<CoordinatedMachine>();
        m->store.values[u"notifyOnPause"_s] = false;
        m->store.values[u"notifyOnToggle"_s] = true;
        m->start();
        QCOMPARE(m->notifications.authorizationRequests, 1);
    }

    void permissionIsAskedForBeforeTheFirstEvaluation()
    {
        m->processTable.output = "claude\n";
        m->notifications.granted = false;
        m->store.values[u"notifyOnToggle"_s] = true;
        expectLog(QtInfoMsg, u"^Notification authorization denied$"_s);
        m->start();
        QCOMPARE(m->notifications.texts(), QStringList{u"Tarvik is keeping your Mac awake: Awake · 1 agent"_s});
    }

    void hookEntriesOfAnotherInstallationAreRepairedAtStart()
    {
        const HookSpec* claude = HookSpec::all.data();
        QVERIFY(HookFiles(m->home.path(), u"/somewhere/else/tarvik"_s).install(*claude));
        expectLog(QtInfoMsg, u"^hook config out of date for claude; rewriting$"_s);
        m->start();
        QFile file(m->home.filePath(u".claude/settings.json"_s));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray content = file.readAll();
        QVERIFY(content.contains("/opt/tarvik/Contents/SharedSupport/tarvik"));
        QVERIFY(!content.contains("/somewhere/else"));
    }

    void aStartOnACPowerIsNotPluggingIn()
    {
        m->store.values[u"isEnabled"_s] = false;
        m->setPower(true, 50);
        m->start();
        m->setPower(true, 51);
        QVERIFY(!m->settings->isEnabled());
    }

private:
    std::unique_ptr<CoordinatedMachine> m;
};

QTEST_GUILESS_MAIN(CoordinatorConstructionTest)
#include "CoordinatorConstructionTest.moc"
