// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PowerSources.h"
#include "platform/linux/dbus/DBusCall.h"
#include "platform/linux/power/UPowerDevice.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QMap>
#include <QObject>

#include <functional>
#include <map>

namespace Tarvik {

/// The power sources as UPower (org.freedesktop.UPower) knows them. Nothing is known until UPower has told everything
/// once, and again while it is away. Asking starts UPower where the bus can start it.
class UPowerPowerSources final : public QObject, public PowerSources {
    Q_OBJECT

public:
    /// `connection` is that to the system bus.
    explicit UPowerPowerSources(const QDBusConnection& connection);

    std::optional<PowerSourcesSnapshot> snapshot() const override;

private:
    Q_SLOT void propertiesChanged(const QDBusMessage& signal);
    Q_SLOT void deviceAdded(const QDBusMessage& signal);
    Q_SLOT void deviceRemoved(const QDBusMessage& signal);

    void forget();
    void readAll();
    void readManager();
    void readDevice(const QString& path);
    void takeManager(const QDBusMessage& answer);
    void takeDevices(const QDBusMessage& answer);
    void takeDevice(const QString& path, const QDBusMessage& answer);
    void ask(const QDBusMessage& call, std::function<void(const QDBusMessage&)> receiver);
    bool readAgainIfUnknown();
    void scheduleAnnouncement();
    void announce();

    QDBusConnection m_connection;
    QDBusServiceWatcher m_watcher;
    /// What has not been answered yet.
    std::map<int, DBusCall> m_calls;
    int m_lastCall = 0;
    bool m_hasManager = false;
    bool m_hasDevices = false;
    /// Everything was answered once.
    bool m_isKnown = false;
    std::optional<bool> m_onBattery;
    QMap<QString, UPowerDevice> m_devices;
    std::optional<PowerSourcesSnapshot> m_announced;
    bool m_isAnnouncing = false;
};

} // namespace Tarvik
