// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/idle/DesktopIdleSleep.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeLogind.h"
#include "fakes/FakeXfce.h"
#include "support/TestSupport.h"

#include <QProcess>
#include <QSettings>

#include <gio/gio.h>

#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using enum IdleSleepAction;

namespace {

/// As the desktops install them, as far as idle sleep goes.
constexpr auto schemas = R"(<schemalist>
  <schema id="org.gnome.settings-daemon.plugins.power" path="/org/gnome/settings-daemon/plugins/power/">
    <key name="sleep-inactive-ac-timeout" type="i"><default>3600</default></key>
    <key name="sleep-inactive-ac-type" type="s"><default>'suspend'</default></key>
    <key name="sleep-inactive-battery-timeout" type="i"><default>1200</default></key>
    <key name="sleep-inactive-battery-type" type="s"><default>'hibernate'</default></key>
  </schema>
  <schema id="org.cinnamon.settings-daemon.plugins.power" path="/org/cinnamon/settings-daemon/plugins/power/">
    <key name="sleep-inactive-ac-timeout" type="i"><default>0</default></key>
    <key name="sleep-inactive-ac-type" type="s"><default>'suspend'</default></key>
    <key name="sleep-inactive-battery-timeout" type="i"><default>1800</default></key>
    <key name="sleep-inactive-battery-type" type="s"><default>'shutdown'</default></key>
  </schema>
  <schema id="org.mate.session" path="/org/mate/desktop/session/">
    <key name="idle-delay" type="i"><default>5</default></key>
  </schema>
  <schema id="org.mate.power-manager" path="/org/mate/power-manager/">
    <key name="sleep-computer-ac" type="i"><default>0</default></key>
    <key name="sleep-computer-battery" type="i"><default>900</default></key>
    <key name="action-sleep-type-ac" type="s"><default>'suspend'</default></key>
    <key name="action-sleep-type-battery" type="s"><default>'suspend'</default></key>
  </schema>
</schemalist>)";

} // namespace

class DesktopIdleSleepTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("GSETTINGS_BACKEND", "memory");
        qputenv("GSETTINGS_SCHEMA_DIR", m_schemas.path().toUtf8());
        QFile file(m_schemas.filePath(u"idle.gschema.xml"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(schemas) > 0 && file.flush());
        QCOMPARE(QProcess::execute(u"glib-compile-schemas"_s, {m_schemas.path()}), 0);
    }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_logind.emplace(m_services);
        m_logind->properties.insert(u"IdleAction"_s, u"ignore"_s);
        m_logind->properties.insert(u"IdleActionUSec"_s, 1'800'000'000ULL);
        m_systemd.emplace(m_services, u"org.freedesktop.systemd1"_s, u"/org/freedesktop/systemd1"_s);
        m_systemd->handler = [this](const QDBusMessage& call) {
            return call.createReply(QVariant::fromValue(QDBusVariant(m_virtualization)));
        };
        m_virtualization.clear();
        m_processes.clear();
        m_desktop = {.processes = [this] { return m_processes; }};
        QVERIFY(m_systemd->appear());
    }

    void cleanup()
    {
        for (const QString& name : std::exchange(m_registered, {}))
            QVERIFY(m_services.unregisterService(name));
        m_logind.reset();
        m_systemd.reset();
    }

    void withoutAnyServiceThereAreNoRules() { QCOMPARE(read(), Rules()); }

    void withoutABusThereAreNoRules()
    {
        FakeClock clock;
        const QDBusConnection nowhere(u"nowhere"_s);
        DesktopIdleSleep idleSleep(nowhere, nowhere, m_desktop, clock);
        std::optional<Rules> answer;
        idleSleep.read([&](const Rules& rules) { answer = rules; });
        QVERIFY(!answer);
        clock.advance(Seconds::zero());
        QCOMPARE(answer, Rules());
    }

    void logindHasARuleEvenIfItDoesNothing()
    {
        QVERIFY(m_logind->appear());
        QCOMPARE(read(), Rules{logindIgnores});
        m_logind->properties.insert(u"IdleAction"_s, u"suspend"_s);
        QCOMPARE(read(), (Rules{{.service = u"logind"_s, .action = suspend, .after = 30min}}));
    }

    void aSettingsDaemonsRulesDependOnThePower()
    {
        QVERIFY(m_logind->appear());
        appear(u"org.gnome.SettingsDaemon.Power"_s);
        QCOMPARE(read(), (Rules{logindIgnores, {.service = u"GNOME"_s, .action = suspend, .after = 60min}}));
        m_logind->properties.insert(u"OnExternalPower"_s, false);
        QCOMPARE(read(), (Rules{logindIgnores, {.service = u"GNOME"_s, .action = hibernate, .after = 20min}}));
    }

    void inAVirtualMachineGnomeDoesNotSleep()
    {
        m_virtualization = u"kvm"_s;
        appear(u"org.gnome.SettingsDaemon.Power"_s);
        QCOMPARE(read(), (Rules{{.service = u"GNOME"_s, .action = nothing, .after = {}}}));
    }

    void gnomeBelievesTheKernelsCommandLineMore()
    {
        const Rules suspends{{.service = u"GNOME"_s, .action = suspend, .after = 60min}};
        const Rules stays{{.service = u"GNOME"_s, .action = nothing, .after = {}}};
        appear(u"org.gnome.SettingsDaemon.Power"_s);
        m_desktop.commandLine = u"quiet gnome.is_vm=1 splash\n"_s;
        QCOMPARE(read(), stays);
        m_virtualization = u"kvm"_s;
        m_desktop.commandLine = u"quiet gnome.is_vm=0"_s;
        QCOMPARE(read(), suspends);
        m_desktop.commandLine = u"gnome.is_vm="_s;
        QCOMPARE(read(), stays);
    }

    void cinnamonsZeroIsNever()
    {
        QVERIFY(m_logind->appear());
        appear(u"org.cinnamon.SettingsDaemon.Power"_s);
        QCOMPARE(read(), (Rules{logindIgnores, {.service = u"Cinnamon"_s, .action = nothing, .after = {}}}));
        m_logind->properties.insert(u"OnExternalPower"_s, false);
        QCOMPARE(read(), (Rules{logindIgnores, {.service = u"Cinnamon"_s, .action = other, .after = 30min}}));
    }

    void mateCountsFromWhenTheSessionIsIdle()
    {
        QVERIFY(m_logind->appear());
        appear(u"org.mate.PowerManager"_s);
        QCOMPARE(read(), (Rules{logindIgnores, {.service = u"MATE"_s, .action = nothing, .after = {}}}));
        m_logind->properties.insert(u"OnExternalPower"_s, false);
        QCOMPARE(read(), (Rules{logindIgnores, {.service = u"MATE"_s, .action = suspend, .after = 20min}}));
    }

    void whatIsSetInXfconfCounts()
    {
        QVERIFY(m_logind->appear());
        FakeXfce xfce(m_services, u"4.18.1"_s);
        QVERIFY(xfce.appear());
        QCOMPARE(read(), (Rules{logindIgnores, {.service = u"XFCE"_s, .action = nothing, .after = {}}}));
        xfce.set(u"inactivity-on-ac"_s, 20U);
        xfce.set(u"inactivity-sleep-mode-on-ac"_s, 2U);
        QCOMPARE(read(), (Rules{logindIgnores, {.service = u"XFCE"_s, .action = hibernate, .after = 20min}}));
        m_logind->properties.insert(u"OnExternalPower"_s, false);
        QCOMPARE(read(), (Rules{logindIgnores, {.service = u"XFCE"_s, .action = nothing, .after = {}}}));
    }

    void withoutXfconfWhatXfceDoesIsNotKnown()
    {
        appear(u"org.xfce.PowerManager"_s);
        QCOMPARE(read(), (Rules{{.service = u"XFCE"_s, .action = {}, .after = {}}}));
    }

    void plasmasRuleIsThatOfTheProfileInForce()
    {
        QTemporaryDir config;
        QFile file(config.filePath(u"powermanagementprofilesrc"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.write("[Battery][SuspendSession]\nidleTime=600000\nsuspendType=1\n") > 0 && file.flush());
        m_desktop.plasmaRelease = 5;
        m_desktop.configDirectories = {config.path()};
        FakeDBusService powerDevil(m_services, u"org.kde.Solid.PowerManagement"_s, u"/org/kde/Solid/PowerManagement"_s);
        powerDevil.handler = [](const QDBusMessage& call) { return call.createReply(u"Battery"_s); };
        QVERIFY(powerDevil.appear());
        QCOMPARE(read(), (Rules{{.service = u"Plasma"_s, .action = suspend, .after = 10min}}));
        m_desktop.plasmaRelease = 0;
        QCOMPARE(read(), (Rules{{.service = u"Plasma"_s, .action = {}, .after = {}}}));
    }

    void lxqtsRuleIsThatOfItsFile()
    {
        QTemporaryDir config;
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, config.path());
        appear(u"org.lxqt.lxqt-powermanagement"_s);
        QCOMPARE(read(), (Rules{{.service = u"LXQt"_s, .action = nothing, .after = {}}}));
    }

    void anIdleDaemonHasSecretsOfItsOwn()
    {
        m_processes = {u"bash"_s, u"swayidle"_s};
        QCOMPARE(read(), (Rules{{.service = u"swayidle"_s, .action = {}, .after = {}}}));
    }

    void whoDoesNotAnswerIsNotWaitedFor()
    {
        m_logind->answerLater(u"GetAll"_s);
        QVERIFY(m_logind->appear());
        DesktopIdleSleep idleSleep(m_client, m_client, m_desktop, m_clock);
        std::optional<Rules> answer;
        idleSleep.read([&](const Rules& rules) { answer = rules; });
        QTRY_VERIFY(m_logind->isWaiting());
        QVERIFY(!answer);
        m_clock.advance(Seconds(2.5));
        QCOMPARE(answer, (Rules{{.service = u"logind"_s, .action = {}, .after = {}}}));
    }

private:
    using Rules = QList<IdleSleepRule>;

    void appear(const QString& name)
    {
        m_registered.append(name);
        QVERIFY(m_services.registerService(name));
    }

    Rules read()
    {
        DesktopIdleSleep idleSleep(m_client, m_client, m_desktop, m_clock);
        std::optional<Rules> answer;
        idleSleep.read([&](const Rules& rules) { answer = rules; });
        if (!QTest::qWaitFor([&] { return answer.has_value(); }, patience))
            qWarning("no answer");
        return answer.value_or(Rules());
    }

    const IdleSleepRule logindIgnores{.service = u"logind"_s, .action = nothing, .after = {}};

    QTemporaryDir m_schemas;
    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
    FakeClock m_clock;
    QStringList m_processes;
    IdleReading::Desktop m_desktop;
    QString m_virtualization;
    QStringList m_registered;
    std::optional<FakeLogind> m_logind;
    std::optional<FakeDBusService> m_systemd;
};

QTEST_GUILESS_MAIN(DesktopIdleSleepTest)
#include "DesktopIdleSleepTest.moc"
