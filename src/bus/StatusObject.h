// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "bus/PropertyAnnouncer.h"
#include "bus/StatusTypes.h"
#include "platform/PowerAssertions.h"

#include <QDBusConnection>
#include <QObject>

namespace Tarvik {

class AwakeCoordinator;
class Clock;
class HotKeys;
class HookMonitor;
class PowerMonitor;
class ThermalMonitor;
class TrayItem;

/// What Tarvik is doing and why, under the names of com.morvanta.Tarvik.Status1; the generated adaptor puts it on the
/// bus. Changes are announced by PropertiesChanged, once for each turn of the event loop.
class StatusObject : public QObject {
    Q_OBJECT
    // clang-format off
    Q_PROPERTY(QString Title READ title)
    Q_PROPERTY(QString Reason READ reason)
    Q_PROPERTY(QString Subtitle READ subtitle)
    Q_PROPERTY(QString Details READ details)
    Q_PROPERTY(bool IsAwake READ isAwake)
    Q_PROPERTY(bool IsPaused READ isPaused)
    Q_PROPERTY(QStringList ActiveAgents READ activeAgents)
    Q_PROPERTY(Tarvik::StatusLeaseList Leases READ leases)
    Q_PROPERTY(double SessionEnd READ sessionEnd)
    Q_PROPERTY(Tarvik::StatusAssertionList Assertions READ assertions)
    Q_PROPERTY(bool OnAC READ onAC)
    Q_PROPERTY(bool HasBattery READ hasBattery)
    Q_PROPERTY(int BatteryPercent READ batteryPercent)
    Q_PROPERTY(bool LidClosed READ lidClosed)
    Q_PROPERTY(uint ThermalState READ thermalState)
    Q_PROPERTY(bool IsHot READ isHot)
    Q_PROPERTY(QString LockShortcut READ lockShortcut)
    Q_PROPERTY(bool TrayShown READ isTrayShown)
    Q_PROPERTY(QString Version READ version)
    // clang-format on

public:
    /// What is shown; all of it must outlive the object.
    struct Sources {
        const AwakeCoordinator& coordinator;
        const PowerMonitor& power;
        const ThermalMonitor& thermal;
        const HookMonitor& hooks;
        PowerAssertions& assertions;
        HotKeys& hotKeys;
        TrayItem& tray;
        const Clock& clock;
    };

    StatusObject(const Sources& sources, QString version, const QDBusConnection& bus);
    ~StatusObject() override;

    QString title() const;
    QString reason() const;
    QString subtitle() const;
    QString details() const;
    bool isAwake() const;
    bool isPaused() const;
    QStringList activeAgents() const;
    StatusLeaseList leases() const;
    double sessionEnd() const;
    StatusAssertionList assertions() const;
    bool onAC() const;
    bool hasBattery() const;
    int batteryPercent() const;
    bool lidClosed() const;
    uint thermalState() const;
    bool isHot() const;
    QString lockShortcut() const;
    bool isTrayShown() const;
    QString version() const { return m_version; }

private:
    Sources m_sources;
    QString m_version;
    PropertyAnnouncer m_announcer;
};

} // namespace Tarvik
