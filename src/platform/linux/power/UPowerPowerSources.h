// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "dbus/RemoteProperties.h"
#include "platform/PowerSources.h"
#include "platform/linux/power/UPowerDevice.h"

#include <QObject>

#include <map>
#include <memory>
#include <vector>

namespace Tarvik {

/// The power sources as UPower (org.freedesktop.UPower) knows them. Nothing is known until UPower has told everything
/// once, and again while it is away. It is started where the bus can start it.
class UPowerPowerSources final : public PowerSources {
public:
    /// `connection` is that to the system bus.
    explicit UPowerPowerSources(const QDBusConnection& connection);

    std::optional<PowerSourcesSnapshot> snapshot() const override;

private:
    void followOwner();
    void listDevices();
    void takeDevices(const QDBusMessage& answer);
    void followDevice(const QString& path);
    void forgetDevice(const QString& path);
    void noticeChange();
    void announce();

    QDBusConnection m_connection;
    BusNameWatch m_names;
    DBusCall m_starting;
    std::unique_ptr<RemoteProperties> m_manager;
    std::vector<std::unique_ptr<DBusSignal>> m_signals;
    DBusCall m_listing;
    bool m_hasDevices = false;
    /// By object path.
    std::map<QString, RemoteProperties> m_devices;
    /// Everything was told once.
    bool m_isKnown = false;
    std::optional<PowerSourcesSnapshot> m_announced;
    bool m_isAnnouncing = false;
    QObject m_eventLoop;
};

} // namespace Tarvik
