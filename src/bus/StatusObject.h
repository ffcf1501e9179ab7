// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "bus/StatusTypes.h"
#include "platform/PowerAssertions.h"

#include <QObject>

#include <vector>

namespace Tarvik {

class AwakeCoordinator;
class Clock;
class HotKeys;
class HookMonitor;
class PowerMonitor;
class ThermalMonitor;
class TrayItem;
class Upgrade;

/// What Tarvik is doing and why, under the names of com.morvanta.Tarvik.Status1. Its signals say that something may
/// have changed.
class StatusObject : public QObject {
    Q_OBJECT
    // clang-format off
    Q_PROPERTY(QString Title READ title NOTIFY changed)
    Q_PROPERTY(QString Reason READ reason NOTIFY changed)
    Q_PROPERTY(QString Subtitle READ subtitle NOTIFY changed)
    Q_PROPERTY(QString Details READ details NOTIFY changed)
    Q_PROPERTY(bool IsAwake READ isAwake NOTIFY changed)
    Q_PROPERTY(bool IsPaused READ isPaused NOTIFY changed)
    Q_PROPERTY(QStringList Active READ active NOTIFY changed)
    Q_PROPERTY(Tarvik::StatusLeaseList Leases READ leases NOTIFY leasesChanged)
    Q_PROPERTY(bool IsTimedSessionActive READ isTimedSessionActive NOTIFY changed)
    Q_PROPERTY(double SessionEnd READ sessionEnd NOTIFY changed)
    Q_PROPERTY(Tarvik::StatusAssertionList Assertions READ assertions NOTIFY changed)
    Q_PROPERTY(bool OnAC READ onAC NOTIFY changed)
    Q_PROPERTY(bool HasBattery READ hasBattery NOTIFY changed)
    Q_PROPERTY(int BatteryPercent READ batteryPercent NOTIFY changed)
    Q_PROPERTY(bool LidClosed READ lidClosed NOTIFY changed)
    Q_PROPERTY(uint ThermalState READ thermalState NOTIFY changed)
    Q_PROPERTY(QString ThermalText READ thermalText NOTIFY changed)
    Q_PROPERTY(bool IsHot READ isHot NOTIFY changed)
    Q_PROPERTY(QString LockShortcut READ lockShortcut NOTIFY changed)
    Q_PROPERTY(bool TrayShown READ isTrayShown NOTIFY changed)
    Q_PROPERTY(QString Version READ version CONSTANT)
    Q_PROPERTY(bool UpgradePending READ isUpgradePending NOTIFY changed)
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
        Upgrade& upgrade;
        const Clock& clock;
    };

    StatusObject(const Sources& sources, QString version);

    QString title() const;
    QString reason() const;
    QString subtitle() const;
    QString details() const;
    bool isAwake() const;
    bool isPaused() const;
    QStringList active() const;
    StatusLeaseList leases() const;
    bool isTimedSessionActive() const;
    double sessionEnd() const;
    StatusAssertionList assertions() const;
    bool onAC() const;
    bool hasBattery() const;
    int batteryPercent() const;
    bool lidClosed() const;
    uint thermalState() const;
    QString thermalText() const;
    bool isHot() const;
    QString lockShortcut() const;
    bool isTrayShown() const;
    QString version() const { return m_version; }
    bool isUpgradePending() const;

Q_SIGNALS:
    void changed();
    void leasesChanged();

private:
    Sources m_sources;
    QString m_version;
    std::vector<Subscription> m_subscriptions;
};

} // namespace Tarvik
