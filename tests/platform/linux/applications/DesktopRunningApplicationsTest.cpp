// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/DesktopRunningApplications.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeRunningApplications.h"
#include "fakes/FakeSystemd.h"
#include "platform/linux/applications/DesktopFiles.h"
#include "platform/linux/x11/X11Connection.h"
#include "support/TemporaryDataHome.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class DesktopRunningApplicationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_data.write("home", "org.example.Editor.desktop", "Name=Editor\nName[de]=Schreiber"); }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_applications.reset();
        auto units = std::make_unique<FakeRunningApplications>();
        auto windows = std::make_unique<FakeRunningApplications>();
        m_units = units.get();
        m_windows = windows.get();
        DesktopRunningApplications::Sources sources;
        sources.push_back(std::move(units));
        sources.push_back(std::move(windows));
        m_applications = std::make_unique<DesktopRunningApplications>(std::move(sources), m_files, m_clock);
        m_changes = 0;
        m_listening = m_applications->changed.subscribe([this] { ++m_changes; });
        m_clock.advance(1s);
        QCOMPARE(m_changes, 0);
    }

    void anApplicationOfSeveralSourcesIsListedOnce()
    {
        m_units->set({m_editor});
        m_windows->set({m_cursor, m_editor, m_cursor});
        m_clock.advance(1s);
        QCOMPARE(m_applications->list(), (QList{m_cursor, RunningApplication{m_editor.id, u"Schreiber"_s}}));
        QCOMPARE(m_changes, 1);
    }

    void anIdWithoutADesktopFileHasNoName()
    {
        m_units->set({{.id = u"unknown"_s, .localizedName = {}}});
        m_clock.advance(1s);
        QCOMPARE(m_applications->list(), (QList{RunningApplication{u"unknown"_s, {}}}));
    }

    void aChangeShowsAfterTwoHundredMillisecondsWhateverFollows()
    {
        m_units->set({m_editor});
        m_clock.advance(150ms);
        m_windows->set({m_cursor});
        QVERIFY(m_applications->list().isEmpty());
        m_clock.advance(50ms);
        QCOMPARE(m_applications->list().size(), 2);
        QCOMPARE(m_changes, 1);
        QCOMPARE(m_clock.pending(), 0U);
    }

    void aChangeThatMakesNoDifferenceIsNotTold()
    {
        m_units->set({m_editor});
        m_clock.advance(1s);
        m_windows->set({m_editor});
        m_clock.advance(1s);
        m_units->set({});
        m_clock.advance(1s);
        QCOMPARE(m_changes, 1);
        m_windows->set({});
        m_clock.advance(1s);
        QCOMPARE(m_changes, 2);
        QVERIFY(m_applications->list().isEmpty());
    }

    void aLaunchThatIsOverBeforeItShowsIsNotTold()
    {
        m_units->set({m_editor});
        m_units->set({});
        m_clock.advance(1s);
        QCOMPARE(m_changes, 0);
    }

    void anotherOrderIsNoChange()
    {
        m_windows->set({m_cursor, m_editor});
        m_clock.advance(1s);
        m_windows->set({m_editor, m_cursor});
        m_clock.advance(1s);
        QCOMPARE(m_changes, 1);
    }

    void anInstalledDesktopFileGivesTheName()
    {
        m_units->set({{.id = u"later"_s, .localizedName = {}}});
        m_clock.advance(1s);
        m_data.write("home", "later.desktop", "Name=Later");
        QTRY_COMPARE(m_clock.pending(), 1U);
        m_clock.advance(1s);
        QCOMPARE(m_applications->list(), (QList{RunningApplication{u"later"_s, u"Later"_s}}));
        QCOMPARE(m_changes, 2);
    }

    void theSessionsOwnSourcesFillInTheBackground()
    {
        m_applications.reset();
        FakeSystemd systemd;
        QVERIFY(systemd.appear());
        systemd.start(u"app-gnome-org.example.Editor-1.scope"_s);
        m_applications = std::make_unique<DesktopRunningApplications>(QDBusConnection::sessionBus(),
            DesktopRunningApplications::Displays{
                .x11 = X11Connection::open(":65000", m_clock), .waylandSocket = u"/nonexistent/wayland-0"_s},
            m_files,
            m_clock);
        m_listening = m_applications->changed.subscribe([this] { ++m_changes; });
        QVERIFY(m_applications->list().isEmpty());
        m_clock.advance(1s);
        QTRY_COMPARE(m_clock.pending(), 1U);
        m_clock.advance(1s);
        QCOMPARE(m_applications->list(), (QList{RunningApplication{m_editor.id, u"Schreiber"_s}}));
        QCOMPARE(m_changes, 1);
    }

private:
    const RunningApplication m_editor{.id = u"org.example.Editor"_s, .localizedName = {}};
    const RunningApplication m_cursor{.id = {}, .localizedName = u"Cursor"_s};
    TemporaryDataHome m_data;
    DesktopFiles m_files;
    FakeClock m_clock;
    FakeRunningApplications* m_units = nullptr;
    FakeRunningApplications* m_windows = nullptr;
    std::unique_ptr<DesktopRunningApplications> m_applications;
    int m_changes = 0;
    Subscription m_listening;
};

int main(int argc, char** argv)
{
    // GIO asks for the languages once.
    qputenv("LANGUAGE", "de");
    qputenv("LC_ALL", "C.UTF-8");
    QCoreApplication application(argc, argv);
    DesktopRunningApplicationsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "DesktopRunningApplicationsTest.moc"
