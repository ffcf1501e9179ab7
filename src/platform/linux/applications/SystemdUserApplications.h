// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RunningApplications.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>
#include <QHash>
#include <QObject>

namespace Tarvik {

/// Applications that the desktop has started as units of the systemd user manager, org.freedesktop.systemd1(5). Names
/// are left empty. The list is empty while there is no such manager.
class SystemdUserApplications final : public QObject, public RunningApplications {
    Q_OBJECT

public:
    explicit SystemdUserApplications(const QDBusConnection& sessionBus);
    ~SystemdUserApplications() override;

    QList<RunningApplication> list() const override;

private Q_SLOTS:
    void unitChanged(const QString& unit);
    void jobRemoved(uint id, const QDBusObjectPath& job, const QString& unit);
    void requestUnits();

private:
    void subscribe();
    /// Object paths of the active units and the ids of their applications.
    void setUnits(const QHash<QString, QString>& units);
    void watchUnit(const QString& path, bool watch);

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    QHash<QString, QString> m_units;
    bool m_requested = false;
    bool m_requestAgain = false;
};

} // namespace Tarvik
