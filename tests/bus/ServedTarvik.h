// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "bus/BusInterface.h"
#include "bus/BusInterfaces.h"
#include "bus/BusObject.h"
#include "bus/StatusObject.h"
#include "dbus/contracts/TarvikWire.h"
#include "engine/CoordinatedMachine.h"
#include "fakes/FakeIdleSleep.h"
#include "fakes/FakeProgramFile.h"
#include "fakes/FakeSleepHistory.h"
#include "fakes/FakeSleepLocks.h"
#include "fakes/FakeTrayItem.h"
#include "fakes/FakeUpdateDriver.h"
#include "updates/Updater.h"
#include "updates/Upgrade.h"
#include "why/WhyCollector.h"

#include <functional>
#include <optional>

namespace Tarvik {

/// Tarvik's object, which also says what it is asked for.
class ObservedBusObject final : public BusObject {
public:
    using BusObject::BusObject;

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        if (onMessage)
            onMessage(message);
        return BusObject::handleMessage(message, connection);
    }

    /// Called before the message is answered.
    std::function<void(const QDBusMessage& message)> onMessage;
};

/// The whole model on fakes, offered on the session bus; on a connection of its own, because QtDBus short-cuts calls
/// within one.
class ServedTarvik {
public:
    ServedTarvik()
    {
        machine.start();
        updater.emplace(updateDriver, machine.store, machine.clock);
        upgrade.emplace(program, machine.clock, Upgrade::Actions{.isIdle = [] { return false; }, .restart = [] {}});
        status.emplace(StatusObject::Sources{*machine.coordinator,
                           *machine.power,
                           *machine.thermal,
                           *machine.hooks,
                           machine.assertions,
                           machine.hotKeys,
                           tray,
                           *upgrade,
                           machine.clock},
            QStringLiteral("1.2.0"));
        why.emplace(WhyCollector::Sources{*machine.coordinator,
            *machine.power,
            machine.assertions,
            *machine.journal,
            machine.hookFiles,
            *machine.lastHookEvents,
            locks,
            idleSleep,
            sleepHistory,
            machine.clock});
        appear();
    }

    ~ServedTarvik() { vanish(); }

    void appear()
    {
        object.emplace(bus);
        object->add(BusInterfaces::application(
            [this](const QString& token) { ask(QStringLiteral("activate ") + token); }, bus));
        object->add(BusInterfaces::status(
            *status, *machine.coordinator, [this] { ask(QStringLiteral("quit")); }, bus));
        object->add(BusInterfaces::settings(*machine.settings,
            {.setLaunchAtLogin
                = [this](bool on) { ask(on ? QStringLiteral("login on") : QStringLiteral("login off")); },
                .setClamshellEnabled = [this](bool on) { machine.lidClosed->setClamshellEnabled(on); }},
            machine.applications,
            bus));
        object->add(BusInterfaces::journal(*machine.journal, bus));
        object->add(BusInterfaces::hooks(machine.hookFiles, *machine.lastHookEvents, bus));
        object->add(BusInterfaces::lidClosed(*machine.lidClosed, *machine.coordinator, *machine.power, bus));
        object->add(BusInterfaces::updater(*updater, bus));
        object->add(BusInterfaces::why(*why, bus));
        bus.registerService(QString::fromLatin1(TarvikWire::busName));
    }

    /// Another build of it is there and waits.
    void installUpgrade()
    {
        program.change(true);
        machine.clock.advance(Upgrade::settleTime);
    }

    void vanish()
    {
        bus.unregisterService(QString::fromLatin1(TarvikWire::busName));
        object.reset();
    }

    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("server"));
    CoordinatedMachine machine;
    FakeTrayItem tray;
    FakeUpdateDriver updateDriver;
    FakeSleepLocks locks;
    FakeIdleSleep idleSleep;
    FakeSleepHistory sleepHistory;
    std::optional<Updater> updater;
    FakeProgramFile program;
    std::optional<Upgrade> upgrade;
    std::optional<StatusObject> status;
    std::optional<WhyCollector> why;
    std::optional<ObservedBusObject> object;
    /// What has been asked for that is not the model's own to do.
    QStringList asked;

private:
    void ask(const QString& what) { asked.append(what); }
};

} // namespace Tarvik
