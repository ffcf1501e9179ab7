// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/assertions/DesktopPowerAssertions.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeCookieInhibitor.h"
#include "fakes/FakeLogind.h"
#include "fakes/FakeXfce.h"
#include "support/TestSupport.h"

#include <QTimer>

#include <cerrno>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using enum PowerAssertionType;
using Behaviour = FakeCookieInhibitor::Behaviour;
using Requests = QList<QVariantList>;

namespace {

const auto why = u"Work is in progress"_s;

QVariantList logindArguments(const QString& what)
{
    return {what, u"Tarvik"_s, why, u"block"_s};
}

QVariantList sessionManagerArguments(uint flags)
{
    return {u"Tarvik"_s, 0U, why, flags};
}

/// In effect at once.
class CountedInhibitor final : public Inhibitor {
public:
    explicit CountedInhibitor(int& held)
        : m_held(held)
    {
        ++m_held;
    }
    ~CountedInhibitor() override { --m_held; }
    CountedInhibitor(const CountedInhibitor&) = delete;
    CountedInhibitor& operator=(const CountedInhibitor&) = delete;

    QString service() const override { return {}; }
    State state() const override { return State::effective; }
    int error() const override { return 0; }
    void setOwner(const QString&) override { }

private:
    int& m_held;
};

/// The names of what is held, a "-" before what is not in effect.
QStringList summary(const PowerAssertions& assertions)
{
    QStringList list;
    for (const auto& hold : assertions.holds())
        list.append((hold.effective ? QString() : u"-"_s) + hold.service + u' ' + hold.what);
    return list;
}

} // namespace

class DesktopPowerAssertionsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_failures.clear();
        m_changes = 0;
        start({});
    }

    void cleanup()
    {
        m_clock.advance(DesktopPowerAssertions::rearmingTime);
        m_assertions.reset();
    }

    void gnomeIsHeldBySessionManagerAndLogind()
    {
        FakeLogind logind(m_services);
        FakeSessionManager sessionManager(m_services);
        QVERIFY(logind.appear() && sessionManager.appear());
        start({});

        auto system = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(summary(*m_assertions), (QStringList{u"session manager suspend"_s, u"logind idle"_s}));
        QCOMPARE(sessionManager.held(), (Requests{sessionManagerArguments(4)}));
        QCOMPARE(logind.held(), (Requests{logindArguments(u"idle"_s)}));

        auto display = m_assertions->create(preventUserIdleDisplaySleep, u"Tarvik"_s);
        QTRY_COMPARE(sessionManager.held(), (Requests{sessionManagerArguments(4), sessionManagerArguments(8)}));
        QTRY_COMPARE(m_assertions->holds().size(), 3);
        QTRY_VERIFY(m_assertions->holds().last().effective);
        QCOMPARE(m_assertions->holds().last().type, preventUserIdleDisplaySleep);

        display.reset();
        QTRY_COMPARE(sessionManager.held(), (Requests{sessionManagerArguments(4)}));
        system.reset();
        QTRY_VERIFY(sessionManager.held().isEmpty());
        QTRY_VERIFY(logind.held().isEmpty());
        QVERIFY(m_assertions->holds().isEmpty());
        QVERIFY(m_failures.isEmpty());
    }

    void kdeIsHeldByItsPowerManagementAndItsScreenLocker()
    {
        FakeLogind logind(m_services);
        FakeDBusService solid(m_services, u"org.kde.Solid.PowerManagement"_s, u"/org/kde/Solid/PowerManagement"_s);
        FakeCookieInhibitor powerManagement = fakePowerManagement();
        FakeCookieInhibitor screenSaver = fakeScreenSaver();
        QVERIFY(logind.appear() && powerManagement.appear() && screenSaver.appear() && solid.appear());
        start({});

        auto system = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        auto display = m_assertions->create(preventUserIdleDisplaySleep, u"Tarvik"_s);
        QTRY_COMPARE(
            summary(*m_assertions), (QStringList{u"KDE power management inhibit"_s, u"screen saver inhibit"_s}));
        QCOMPARE(powerManagement.held(), (Requests{{u"Tarvik"_s, why}}));
        QCOMPARE(screenSaver.held(), (Requests{{u"Tarvik"_s, why}}));
        system.reset();
        QTRY_VERIFY(powerManagement.held().isEmpty());
        display.reset();
        QTRY_VERIFY(screenSaver.held().isEmpty());
        QVERIFY(logind.questions.isEmpty());
    }

    void xfceIsHeldByItsPowerManagementOnlyWhereItWouldSuspend()
    {
        FakeLogind logind(m_services);
        FakeXfce xfce(m_services, u"4.18.1"_s);
        xfce.set(u"inactivity-on-ac"_s, 14U);
        FakeCookieInhibitor powerManagement = fakePowerManagement();
        QVERIFY(logind.appear() && powerManagement.appear() && xfce.appear());
        start({});

        auto system = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(summary(*m_assertions), QStringList{u"logind idle"_s});
        QTRY_COMPARE(xfce.answered, 3);
        QVERIFY(powerManagement.requests.isEmpty());

        xfce.set(u"inactivity-on-battery"_s, 20U);
        QTRY_COMPARE(summary(*m_assertions), QStringList{u"XFCE power management inhibit"_s});
        QTRY_VERIFY(logind.held().isEmpty());
        QCOMPARE(powerManagement.held().size(), 1);

        xfce.vanish();
        QTRY_COMPARE(summary(*m_assertions), QStringList{u"logind idle"_s});
        QTRY_VERIFY(powerManagement.held().isEmpty());
    }

    void xfceCountsIdlenessAnewAfterTheWork()
    {
        FakeXfce xfce(m_services, u"4.18.1"_s);
        xfce.set(u"inactivity-on-ac"_s, 15U);
        FakeCookieInhibitor powerManagement = fakePowerManagement();
        QVERIFY(powerManagement.appear() && xfce.appear());
        int held = 0;
        int activity = 0;
        start({}, m_system, m_session, [&] {
            ++activity;
            return std::make_unique<CountedInhibitor>(held);
        });
        auto system = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(powerManagement.held().size(), 1);
        auto display = m_assertions->create(preventUserIdleDisplaySleep, u"Tarvik"_s);
        QTRY_COMPARE(powerManagement.held().size(), 2);
        display.reset();
        QCOMPARE(activity, 0);
        system.reset();
        QCOMPARE(activity, 1);
        QCOMPARE(held, 1);
        QTRY_VERIFY(powerManagement.held().isEmpty());
        m_clock.advance(DesktopPowerAssertions::rearmingTime);
        QCOMPARE(held, 0);
    }

    void anIdleDaemonIsHeldByAnIdleLockForAMomentAfterTheWork()
    {
        FakeLogind logind(m_services);
        FakeDBusService systemd(m_services, u"org.freedesktop.systemd1"_s, u"/org/freedesktop/systemd1"_s);
        systemd.handler = [&](const QDBusMessage& call) {
            return call.createReply(QVariant::fromValue(QDBusVariant(u"257.13-1~deb13u1"_s)));
        };
        QVERIFY(systemd.appear() && logind.appear());
        start(u"sway"_s);
        auto system = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(logind.held(), (Requests{logindArguments(u"sleep"_s)}));
        system.reset();
        QTRY_COMPARE(logind.held(), (Requests{logindArguments(u"idle"_s)}));
        QVERIFY(m_assertions->holds().isEmpty());
        // Work that begins and ends meanwhile has the moment last longer.
        m_clock.advance(DesktopPowerAssertions::rearmingTime / 2);
        m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s).reset();
        m_clock.advance(DesktopPowerAssertions::rearmingTime / 2);
        QTRY_COMPARE(logind.held(), (Requests{logindArguments(u"idle"_s), logindArguments(u"idle"_s)}));
        m_clock.advance(DesktopPowerAssertions::rearmingTime / 2);
        QTRY_VERIFY(logind.held().isEmpty());
    }

    void whatAnIdleDaemonIsHeldByForAMomentOutlivesTheEnd()
    {
        FakeLogind logind(m_services);
        FakeDBusService systemd(m_services, u"org.freedesktop.systemd1"_s, u"/org/freedesktop/systemd1"_s);
        systemd.handler = [&](const QDBusMessage& call) {
            return call.createReply(QVariant::fromValue(QDBusVariant(u"257.13-1~deb13u1"_s)));
        };
        QVERIFY(systemd.appear() && logind.appear());
        start(u"sway"_s);
        auto system = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(logind.held(), (Requests{logindArguments(u"sleep"_s)}));
        bool isOver = false;
        bool wasHeld = false;
        QTimer look;
        connect(&look, &QTimer::timeout, this, [&] {
            wasHeld = !isOver && logind.held() == Requests{logindArguments(u"idle"_s)};
            if (wasHeld)
                m_clock.advance(DesktopPowerAssertions::rearmingTime);
        });
        look.start();
        system.reset();
        m_assertions.reset();
        isOver = true;
        QVERIFY(wasHeld);
        QTRY_VERIFY(logind.held().isEmpty());
    }

    void swayIsHeldByASleepLockWhereThatBindsItsOwner()
    {
        FakeLogind logind(m_services);
        FakeDBusService systemd(m_services, u"org.freedesktop.systemd1"_s, u"/org/freedesktop/systemd1"_s);
        systemd.handler = [&](const QDBusMessage& call) {
            return call.createReply(QVariant::fromValue(QDBusVariant(u"257.13-1~deb13u1"_s)));
        };
        QVERIFY(systemd.appear() && logind.appear());
        start(u"sway"_s);

        auto system = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(summary(*m_assertions), QStringList{u"logind sleep"_s});
        QTRY_COMPARE(logind.held(), (Requests{logindArguments(u"sleep"_s)}));
        auto display = m_assertions->create(preventUserIdleDisplaySleep, u"Tarvik"_s);
        QTRY_COMPARE(logind.held(), (Requests{logindArguments(u"sleep"_s), logindArguments(u"idle"_s)}));
    }

    void lxqtWithoutAnAnswerFromSystemdIsHeldByAnIdleLock()
    {
        FakeLogind logind(m_services);
        FakeDBusService session(m_services, u"org.lxqt.session"_s, u"/LXQtSession"_s);
        QVERIFY(logind.appear() && session.appear());
        start(u"LXQt"_s);
        auto system = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(summary(*m_assertions), QStringList{u"logind idle"_s});
        QCOMPARE(logind.held(), (Requests{logindArguments(u"idle"_s)}));
    }

    void withoutADesktopTheXServerKeepsItsDisplayOn()
    {
        FakeLogind logind(m_services);
        QVERIFY(logind.appear());
        int held = 0;
        start({}, m_system, m_session, [&] { return std::make_unique<CountedInhibitor>(held); });
        auto system = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(summary(*m_assertions), QStringList{u"logind idle"_s});
        QCOMPARE(held, 0);
        auto display = m_assertions->create(preventUserIdleDisplaySleep, u"Tarvik"_s);
        QTRY_COMPARE(
            summary(*m_assertions), (QStringList{u"logind idle"_s, u"X server screen saver"_s, u"logind idle"_s}));
        QCOMPARE(held, 1);
        display.reset();
        QCOMPARE(held, 0);
    }

    void aDesktopThatAppearsLaterRelievesTheXServer()
    {
        int held = 0;
        start({}, m_system, m_session, [&] { return std::make_unique<CountedInhibitor>(held); });
        const auto display = m_assertions->create(preventUserIdleDisplaySleep, u"Tarvik"_s);
        QTRY_COMPARE(held, 1);
        FakeXfce xfce(m_services, u"4.18.1"_s);
        FakeCookieInhibitor powerManagement = fakePowerManagement();
        QVERIFY(powerManagement.appear() && xfce.appear());
        QTRY_COMPARE(held, 0);
        QTRY_COMPARE(summary(*m_assertions), QStringList{u"XFCE power management inhibit"_s});
    }

    void aCookieThatComesAfterEverythingIsGoneIsGivenBack()
    {
        FakeSessionManager sessionManager(m_services);
        sessionManager.behaviour = Behaviour::answerLater;
        QVERIFY(sessionManager.appear());
        start({});
        auto assertion = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(sessionManager.requests.size(), 1);
        m_assertions.reset();
        assertion.reset();
        sessionManager.grantNow();
        QTRY_VERIFY(sessionManager.held().isEmpty());
    }

    void anAssertionMayOutliveItsMaker()
    {
        FakeLogind logind(m_services);
        QVERIFY(logind.appear());
        start({});
        auto assertion = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(logind.held().size(), 1);
        m_assertions.reset();
        QCOMPARE(assertion->failure(), std::nullopt);
        QCOMPARE(logind.held().size(), 1);
        assertion.reset();
        QTRY_VERIFY(logind.held().isEmpty());
    }

    void aServiceThatRestartsIsAskedAgain()
    {
        FakeSessionManager sessionManager(m_services);
        QVERIFY(sessionManager.appear());
        start({});
        auto assertion = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(summary(*m_assertions), QStringList{u"session manager suspend"_s});
        sessionManager.vanish();
        sessionManager.forget();
        QTRY_COMPARE(summary(*m_assertions), QStringList{u"-session manager suspend"_s});
        QCOMPARE(assertion->failure(), std::nullopt);
        QVERIFY(sessionManager.appear());
        QTRY_COMPARE(summary(*m_assertions), QStringList{u"session manager suspend"_s});
        QCOMPARE(sessionManager.held().size(), 1);
        QCOMPARE(sessionManager.requests.size(), 2);
        assertion.reset();
        QTRY_VERIFY(sessionManager.held().isEmpty());
        QVERIFY(m_failures.isEmpty());
    }

    void aSessionManagerThatAppearsLaterIsAskedToo()
    {
        FakeLogind logind(m_services);
        FakeSessionManager sessionManager(m_services);
        QVERIFY(logind.appear());
        start({});
        auto assertion = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(summary(*m_assertions), QStringList{u"logind idle"_s});
        QVERIFY(sessionManager.appear());
        QTRY_COMPARE(summary(*m_assertions), (QStringList{u"logind idle"_s, u"session manager suspend"_s}));
        QCOMPARE(logind.questions.count(FakeLogind::inhibit), 1);
    }

    void aKdeThatAppearsLaterReplacesTheIdleLock()
    {
        FakeLogind logind(m_services);
        FakeDBusService solid(m_services, u"org.kde.Solid.PowerManagement"_s, u"/org/kde/Solid/PowerManagement"_s);
        FakeCookieInhibitor powerManagement = fakePowerManagement();
        QVERIFY(logind.appear());
        start({});
        auto assertion = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(logind.held().size(), 1);
        QVERIFY(solid.appear() && powerManagement.appear());
        QTRY_COMPARE(summary(*m_assertions), QStringList{u"KDE power management inhibit"_s});
        QTRY_VERIFY(logind.held().isEmpty());
        QCOMPARE(powerManagement.held().size(), 1);
    }

    void aRefusalIsAFailureThatIsToldOnce()
    {
        FakeLogind logind(m_services);
        logind.failWith(FakeLogind::inhibit, QDBusError::AccessDenied);
        QVERIFY(logind.appear());
        start({});
        auto assertion = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(m_failures, (Failures{{preventUserIdleSystemSleep, EACCES}}));
        QCOMPARE(assertion->failure(), EACCES);
        QCOMPARE(summary(*m_assertions), QStringList{u"-logind idle"_s});

        logind.failWith(FakeLogind::inhibit, QDBusError::LimitsExceeded);
        logind.vanish();
        QVERIFY(logind.appear());
        QTRY_COMPARE(assertion->failure(), ENOBUFS);
        QCOMPARE(logind.questions.count(FakeLogind::inhibit), 2);
        QCOMPARE(m_failures.size(), 1);

        auto second = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(m_failures.size(), 2);
        QCOMPARE(m_failures.last().second, ENOBUFS);
    }

    void oneRefusalOfTwoIsNotAFailure()
    {
        FakeLogind logind(m_services);
        FakeSessionManager sessionManager(m_services);
        sessionManager.behaviour = Behaviour::refuse;
        QVERIFY(logind.appear() && sessionManager.appear());
        start({});
        auto assertion = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(summary(*m_assertions), (QStringList{u"-session manager suspend"_s, u"logind idle"_s}));
        QTRY_COMPARE(sessionManager.requests.size(), 1);
        QCOMPARE(assertion->failure(), std::nullopt);
        QVERIFY(m_failures.isEmpty());
    }

    void noServiceIsAFailureUntilOneAppears()
    {
        auto assertion = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        auto display = m_assertions->create(preventUserIdleDisplaySleep, u"Tarvik"_s);
        QVERIFY(m_failures.isEmpty());
        QTRY_COMPARE(m_failures,
            (Failures{{preventUserIdleSystemSleep, EHOSTUNREACH}, {preventUserIdleDisplaySleep, EHOSTUNREACH}}));
        FakeLogind logind(m_services);
        QVERIFY(logind.appear());
        QTRY_COMPARE(logind.held().size(), 2);
        QCOMPARE(assertion->failure(), std::nullopt);
        QCOMPARE(display->failure(), std::nullopt);
        QCOMPARE(m_failures.size(), 2);
    }

    void withoutASessionBusLogindIsEnough()
    {
        FakeLogind logind(m_services);
        QVERIFY(logind.appear());
        start({}, m_system, QDBusConnection(u"nowhere"_s));
        auto assertion = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(summary(*m_assertions), QStringList{u"logind idle"_s});
    }

    void withoutAnyBusEveryAssertionFails()
    {
        start({}, QDBusConnection(u"nowhere"_s), QDBusConnection(u"nowhere"_s));
        auto assertion = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QVERIFY(m_failures.isEmpty());
        QTRY_COMPARE(m_failures, (Failures{{preventUserIdleSystemSleep, EHOSTUNREACH}}));
    }

    void aFailedAssertionMayBeReplacedByWhoeverIsTold()
    {
        std::unique_ptr<PowerAssertion> assertion;
        int told = 0;
        const Subscription listening = m_assertions->failed.subscribe([&](PowerAssertionType type, int) {
            if (++told < 3)
                assertion = m_assertions->create(type, u"Tarvik"_s);
        });
        assertion = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        QTRY_COMPARE(told, 3);
    }

    void changesAreToldOncePerTurn()
    {
        FakeLogind logind(m_services);
        QVERIFY(logind.appear());
        start({});
        auto first = m_assertions->create(preventUserIdleSystemSleep, u"Tarvik"_s);
        auto second = m_assertions->create(preventUserIdleDisplaySleep, u"Tarvik"_s);
        QTRY_COMPARE(summary(*m_assertions), (QStringList{u"logind idle"_s, u"logind idle"_s}));
        QTRY_VERIFY(m_changes > 0);
        QCoreApplication::sendPostedEvents();
        m_changes = 0;
        first.reset();
        second.reset();
        QCOMPARE(m_changes, 0);
        QTRY_COMPARE(m_changes, 1);
        QVERIFY(m_assertions->holds().isEmpty());
    }

private:
    using Failures = QList<std::pair<PowerAssertionType, int>>;

    void start(const QString& desktop) { start(desktop, m_system, m_session); }

    void start(const QString& desktop,
        const QDBusConnection& system,
        const QDBusConnection& session,
        DesktopPowerAssertions::X11ScreenSaver x11ScreenSaver = {})
    {
        m_assertions
            = std::make_unique<DesktopPowerAssertions>(system, session, desktop, std::move(x11ScreenSaver), m_clock);
        m_failureNews = m_assertions->failed.subscribe([this](PowerAssertionType type, int code) {
            m_failures.append({type, code});
        });
        m_holdsNews = m_assertions->holdsChanged.subscribe([this] { ++m_changes; });
    }

    FakeCookieInhibitor fakePowerManagement()
    {
        return {m_services,
            u"org.freedesktop.PowerManagement"_s,
            u"/org/freedesktop/PowerManagement/Inhibit"_s,
            u"org.freedesktop.PowerManagement.Inhibit"_s};
    }

    FakeCookieInhibitor fakeScreenSaver()
    {
        return {m_services,
            u"org.freedesktop.ScreenSaver"_s,
            u"/org/freedesktop/ScreenSaver"_s,
            u"org.freedesktop.ScreenSaver"_s};
    }

    QDBusConnection m_system = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"system"_s);
    QDBusConnection m_session = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"session"_s);
    QDBusConnection m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
    FakeClock m_clock;
    std::unique_ptr<DesktopPowerAssertions> m_assertions;
    Failures m_failures;
    int m_changes = 0;
    Subscription m_failureNews;
    Subscription m_holdsNews;
};

QTEST_GUILESS_MAIN(DesktopPowerAssertionsTest)
#include "DesktopPowerAssertionsTest.moc"
