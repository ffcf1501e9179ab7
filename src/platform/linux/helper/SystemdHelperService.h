// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCall.h"
#include "platform/HelperService.h"
#include "platform/linux/helper/AdministratorProgram.h"
#include "platform/linux/helper/HelperAvailability.h"

#include <QObject>

#include <memory>
#include <vector>

namespace Tarvik {

/// The background helper as a service of the system. A distribution's package brings it along, then nothing has to be
/// done; otherwise the bundle has its files and a program that puts them below /usr/local as an administrator.
class SystemdHelperService final : public HelperService {
public:
    struct Places {
        /// The program in the bundle that installs the helper; there is none in a distribution's package.
        QString installer;
        /// A file that is there when that program has installed the helper.
        QString installedFile;
    };

    /// `label` is the helper's name on the bus; the bundle lies at `bundleLocation`.
    static Places places(const QString& bundleLocation, const QString& label);

    SystemdHelperService(const QDBusConnection& systemBus, QString label, Places places);
    SystemdHelperService(const SystemdHelperService&) = delete;
    SystemdHelperService& operator=(const SystemdHelperService&) = delete;

    std::optional<HelperStatus> status() const override;
    void refresh() override;

    /// Has the helper's files copied anew, over those of an earlier time, and ends a helper that runs, for which the
    /// user is asked for an administrator's password. Where a package has brought the helper, it is only started.
    void registerService(std::function<void(const QString& error)> done) override;

    /// Takes nothing away: the user would have to give the password once more for what is going to be installed
    /// again. An administrator takes the helper away with the installer.
    void unregisterService(std::function<void(const QString& error)> done) override;

    [[nodiscard]] std::unique_ptr<HelperConnection> connect() override;

private:
    void install();
    void start();
    void finish(const QString& error);

    QDBusConnection m_bus;
    QString m_label;
    Places m_places;
    HelperAvailability m_availability;
    std::unique_ptr<AdministratorProgram> m_installation;
    DBusCall m_start;
    std::vector<std::function<void(const QString& error)>> m_waiting;
};

} // namespace Tarvik
