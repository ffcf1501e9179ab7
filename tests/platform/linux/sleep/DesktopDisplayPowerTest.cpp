// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/DesktopDisplayPower.h"

#include "dbus/BusNames.h"
#include "fakes/FakeDBusService.h"
#include "fakes/FakeOutputPower.h"
#include "platform/linux/TimerfdClock.h"
#include "platform/linux/x11/X11Connection.h"
#include "support/StandInPrograms.h"
#include "support/TestSupport.h"
#include "support/VirtualXServer.h"

#include <QDBusVariant>
#include <QFile>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class DesktopDisplayPowerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_calls.clear();
        m_answers.clear();
    }

    void onKdeItsOwnActionIsInvoked()
    {
        FakeDBusService powerDevil(m_service, BusNames::kdePowerManager, u"/"_s);
        FakeDBusService shortcuts(m_service, BusNames::kglobalaccel, u"/component/org_kde_powerdevil"_s);
        QVERIFY(appear(powerDevil) && appear(shortcuts));
        expect({}, {}, {});
        QCOMPARE(m_calls, QStringList{u"org.kde.kglobalaccel.Component.invokeShortcut Turn Off Screen"_s});
    }

    void whereKdeHasNoSuchActionItsCommandIsRun()
    {
        FakeDBusService powerDevil(m_service, BusNames::kdePowerManager, u"/"_s);
        FakeDBusService shortcuts(m_service, BusNames::kglobalaccel, u"/elsewhere"_s);
        QVERIFY(appear(powerDevil) && appear(shortcuts));
        const StandInPrograms programs;
        const QString told = programs.path() + u"/told"_s;
        programs.write(u"kscreen-doctor"_s, "echo $* >" + told.toLocal8Bit());
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", programs.path().toLocal8Bit());
        expect({}, {}, {});
        programs.write(u"kscreen-doctor"_s, "exit 1");
        expect({}, {}, u"kscreen-doctor has failed"_s);
        programs.remove(u"kscreen-doctor"_s);
        expect({}, {}, u"kscreen-doctor is not installed"_s);
        qputenv("PATH", path);
        QFile file(told);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("--dpms off\n"));
    }

    void onGnomeTheScreenSaverIsActivated()
    {
        FakeDBusService saver(m_service, BusNames::gnomeScreenSaver, u"/org/gnome/ScreenSaver"_s);
        FakeDBusService settings(m_service, BusNames::gnomePowerManager, u"/"_s);
        FakeDBusService mutter(m_service, BusNames::mutterDisplayConfig, u"/org/gnome/Mutter/DisplayConfig"_s);
        QVERIFY(appear(saver) && appear(settings) && appear(mutter));
        expect({}, {}, {});
        QCOMPARE(m_calls, QStringList{u"org.gnome.ScreenSaver.SetActive true"_s});
        m_power->wake();
        m_power.reset();
        QCOMPARE(m_calls.size(), 1);
    }

    void whatMutterSwitchesOffIsSwitchedOnAgain()
    {
        FakeDBusService mutter(m_service, BusNames::mutterDisplayConfig, u"/org/gnome/Mutter/DisplayConfig"_s);
        QVERIFY(appear(mutter));
        const QString set = u"org.freedesktop.DBus.Properties.Set org.gnome.Mutter.DisplayConfig PowerSaveMode "_s;
        expect({}, {}, {});
        QCOMPARE(m_calls, QStringList{set + u"3"_s});
        m_power->wake();
        QTRY_COMPARE(m_calls, (QStringList{set + u"3"_s, set + u"0"_s}));
        m_power->wake();
        expect({}, {}, {});
        m_power.reset();
        QTRY_COMPARE(m_calls, (QStringList{set + u"3"_s, set + u"0"_s, set + u"3"_s, set + u"0"_s}));
    }

    void whatIsTakenBackInTimeIsNotDone()
    {
        const VirtualXServer server;
        const DesktopDisplayPower::Display display{
            .x11 = X11Connection::open(server.display(), m_clock), .waylandSocket = {}};
        m_power.emplace(m_client, display, m_clock);
        m_power->sleepNow([this](const QString& error) { m_answers.append(error); });
        m_power->wake();
        expect({}, {}, u"nobody is known here who could switch the displays off"_s);
        QCOMPARE(m_answers.size(), 1);
    }

    void anXServerThatCannotDoItSaysSo()
    {
        const VirtualXServer server;
        QVERIFY(server.isRunning());
        expect(server.display(), {}, u"the X server cannot switch its displays off"_s);
        expect(":20776", {}, u"the X server cannot be reached"_s);
    }

    void aWaylandCompositorSwitchesAllOffAndOn_data()
    {
        QTest::addColumn<FakeOutputPower::Behaviour>("behaviour");
        QTest::newRow("at once") << FakeOutputPower::Behaviour::atOnce;
        QTest::newRow("with the next picture") << FakeOutputPower::Behaviour::later;
    }

    void aWaylandCompositorSwitchesAllOffAndOn()
    {
        QFETCH(FakeOutputPower::Behaviour, behaviour);
        const FakeOutputPower compositor(behaviour);
        expect({}, compositor.socket(), {});
        QVERIFY(!compositor.isOn[0] && !compositor.isOn[1]);
        m_power->wake();
        QTRY_VERIFY(compositor.isOn[0] && compositor.isOn[1]);

        expect({}, compositor.socket(), {});
        QVERIFY(!compositor.isOn[0] && !compositor.isOn[1]);
        m_power.reset();
        QTRY_VERIFY(compositor.isOn[0] && compositor.isOn[1]);
    }

    void aScreenThatWasOffStaysOff()
    {
        FakeOutputPower compositor;
        compositor.isOn[1] = false;
        expect({}, compositor.socket(), {});
        QVERIFY(!compositor.isOn[0]);
        m_power->wake();
        QTRY_VERIFY(compositor.isOn[0]);
        QVERIFY(!compositor.isOn[1]);
    }

    void aCompositorMayFail_data()
    {
        QTest::addColumn<FakeOutputPower::Behaviour>("behaviour");
        QTest::newRow("and say so") << FakeOutputPower::Behaviour::fails;
        QTest::newRow("in silence") << FakeOutputPower::Behaviour::staysSilent;
    }

    void aCompositorMayFail()
    {
        QFETCH(FakeOutputPower::Behaviour, behaviour);
        const FakeOutputPower compositor(behaviour);
        expect({}, compositor.socket(), u"the compositor does not switch off all displays"_s);
    }

    void aCompositorMayGoAway()
    {
        std::optional<FakeOutputPower> compositor(std::in_place);
        const QString socket = compositor->socket();
        expect({}, socket, {});
        compositor.reset();
        m_power->wake();
        expect({}, socket, u"the compositor cannot be reached"_s);
    }

private:
    /// Notes down what it is called with.
    bool appear(FakeDBusService& service)
    {
        service.handler = [this](const QDBusMessage& call) {
            QStringList words{call.interface() + u'.' + call.member()};
            for (const QVariant& argument : call.arguments()) {
                const bool isVariant = argument.metaType() == QMetaType::fromType<QDBusVariant>();
                words.append((isVariant ? argument.value<QDBusVariant>().variant() : argument).toString());
            }
            m_calls.append(words.join(u' '));
            return call.createReply();
        };
        return service.appear();
    }

    void expect(const QByteArray& x11, const QString& waylandSocket, const QString& error)
    {
        m_answers.clear();
        const DesktopDisplayPower::Display display{
            .x11 = x11.isEmpty() ? nullptr : X11Connection::open(x11, m_clock), .waylandSocket = waylandSocket};
        m_power.emplace(m_client, display, m_clock);
        m_power->sleepNow([this](const QString& answer) { m_answers.append(answer); });
        QCOMPARE(m_answers, QStringList());
        QTRY_COMPARE(m_answers, QStringList{error});
    }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_service = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"service"_s);
    TimerfdClock m_clock;
    std::optional<DesktopDisplayPower> m_power;
    QStringList m_calls;
    QStringList m_answers;
};

QTEST_GUILESS_MAIN(DesktopDisplayPowerTest)
#include "DesktopDisplayPowerTest.moc"
