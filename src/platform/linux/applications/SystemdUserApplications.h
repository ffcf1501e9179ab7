// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "dbus/DBusSignal.h"
#include "platform/RunningApplications.h"

#include <QHash>

#include <map>
#include <memory>

namespace Tarvik {

/// Applications that the desktop has started as units of the systemd user manager, org.freedesktop.systemd1(5). Names
/// are left empty. The list is empty while there is no such manager.
class SystemdUserApplications final : public RunningApplications {
public:
    explicit SystemdUserApplications(const QDBusConnection& sessionBus);

    QList<RunningApplication> list() const override;

private:
    void followOwner();
    void takeSignal(const QDBusMessage& signal);
    void requestUnits();
    /// Object paths of the active units and the ids of their applications.
    void setUnits(const QHash<QString, QString>& units);

    QDBusConnection m_bus;
    BusNameWatch m_names;
    std::unique_ptr<DBusSignal> m_signals;
    QHash<QString, QString> m_units;
    /// By object path.
    std::map<QString, DBusSignal> m_unitChanges;
    DBusCall m_subscribing;
    DBusCall m_request;
    bool m_requestAgain = false;
};

} // namespace Tarvik
