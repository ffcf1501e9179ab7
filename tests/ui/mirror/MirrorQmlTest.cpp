// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/ServedTarvik.h"
#include "support/TestSupport.h"
#include "ui/mirror/HooksMirror.h"
#include "ui/mirror/JournalMirror.h"
#include "ui/mirror/SettingsMirror.h"
#include "ui/mirror/StatusMirror.h"
#include "ui/mirror/UpdaterMirror.h"

#include <QDir>
#include <QQmlComponent>
#include <QQmlEngine>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

/// Binds by name only.
constexpr auto view = R"(
import QtQml
import QtQml.Models

QtObject {
    id: view

    required property QtObject status
    required property QtObject settings
    required property QtObject journal
    required property QtObject hooks
    required property QtObject updater

    readonly property string battery: status.hasBattery && status.batteryPercent !== undefined
        ? status.batteryPercent + "% on " + (status.isOnAC ? "AC" : "battery") : "none"
    readonly property string thermal: status.thermalText
    readonly property string apps: settings.allowlist.map(app => app.bundleID + "=" + app.name).join()
    readonly property string lastCheck: updater.lastUpdateCheckDate === undefined
        ? "never" : updater.lastUpdateCheckDate.toISOString()
    readonly property string agents: hooks.agents.map(
        agent => agent.label + (hooks.installedIds.includes(agent.id) ? " on" : " off")).join()
    readonly property string newest: rows.count > 0
        ? rows.objectAt(0).iconName + " " + rows.objectAt(0).reason + " " + rows.objectAt(0).at.getTime() : ""
    property var failed: []

    readonly property Instantiator rows: Instantiator {
        model: view.journal.entries
        delegate: QtObject {
            required property string iconName
            required property string iconColor
            required property string reason
            required property date at
        }
    }
    readonly property Connections outcome: Connections {
        target: view.hooks
        function onChanged(id, succeeded) {
            if (!succeeded)
                view.failed = view.failed.concat(id);
        }
    }
    function flip() {
        settings.requireAC = !settings.requireAC;
        settings.addToAllowlist("gimp", "GIMP");
        hooks.install("codex");
        hooks.install("claude");
        updater.automaticallyChecksForUpdates = true;
        updater.checkForUpdates();
    }
}
)";

} // namespace

class MirrorQmlTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void viewsBindToTheModelsNames()
    {
        ServedTarvik tarvik;
        tarvik.machine.setPower(true, 80);
        const QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
        StatusMirror status(bus);
        SettingsMirror settings(bus);
        JournalMirror journal(bus);
        HooksMirror hooks(bus);
        UpdaterMirror updater(bus);
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData(view, {});
        const std::unique_ptr<QObject> object(component.createWithInitialProperties({
            {u"status"_s, QVariant::fromValue<QObject*>(&status)},
            {u"settings"_s, QVariant::fromValue<QObject*>(&settings)},
            {u"journal"_s, QVariant::fromValue<QObject*>(&journal)},
            {u"hooks"_s, QVariant::fromValue<QObject*>(&hooks)},
            {u"updater"_s, QVariant::fromValue<QObject*>(&updater)},
        }));
        QVERIFY2(object, qPrintable(component.errorString()));

        QCOMPARE(object->property("battery"), u"none"_s);
        QTRY_COMPARE(object->property("battery"), u"80% on AC"_s);
        tarvik.machine.setPower(false, 79);
        QTRY_COMPARE(object->property("battery"), u"79% on battery"_s);
        tarvik.machine.setPower(true, {});
        QTRY_COMPARE(object->property("battery"), u"none"_s);
        QTRY_COMPARE(object->property("thermal"), u"normal"_s);
        tarvik.machine.setThermal(ThermalLevel::serious);
        QTRY_COMPARE(object->property("thermal"), u"hot"_s);
        tarvik.machine.journal->record(JournalEntry::Kind::paused, u"Too hot"_s);
        QTRY_COMPARE(object->property("newest"), u"pause.circle Too hot 1700000000000"_s);
        QTRY_COMPARE(object->property("agents"),
            u"Claude Code off,Codex off,Gemini CLI off,Qwen Code off,Factory Droid off,Copilot CLI off"_s);
        QCOMPARE(object->property("lastCheck"), u"never"_s);

        // A place where no file can be.
        QVERIFY(QDir(tarvik.machine.home.path()).mkpath(u".claude/settings.json"_s));
        expectLog(QtCriticalMsg, u"^could not write hook config for claude: Not a regular file$"_s);
        tarvik.updateDriver.becomeAvailable();
        QTRY_VERIFY(updater.canCheckForUpdates());
        QVERIFY(QMetaObject::invokeMethod(object.get(), "flip"));
        QTRY_COMPARE(object->property("apps"), u"gimp=GIMP"_s);
        QTRY_COMPARE(object->property("agents"),
            u"Claude Code off,Codex on,Gemini CLI off,Qwen Code off,Factory Droid off,Copilot CLI off"_s);
        QTRY_COMPARE(object->property("failed").toStringList(), QStringList{u"claude"_s});
        QCOMPARE(tarvik.machine.settings->requireAC(), true);
        QTRY_COMPARE(tarvik.updateDriver.started.size(), 1);
        tarvik.updateDriver.finish(true);
        QTRY_COMPARE(object->property("lastCheck"), u"2023-11-14T22:13:20.000Z"_s);
    }
};

QTEST_GUILESS_MAIN(MirrorQmlTest)
#include "MirrorQmlTest.moc"
