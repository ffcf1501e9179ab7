// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/FileDescriptor.h"
#include "dbus/BusNameWatch.h"
#include "dbus/DBusCall.h"
#include "platform/SleepControl.h"
#include "platform/linux/inhibitors/LogindInhibitors.h"
#include "platform/linux/programs/StartedProgram.h"

#include <QSocketNotifier>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace Tarvik {

/// A lock of logind that root holds for this process: pkexec(1) has systemd-run(1) start systemd-inhibit(1), which
/// holds it for as long as cat(1) reads from our pipe. So it ends at once with the object, and with this process
/// however that ends, and nobody is asked again.
class AdministratorLock final : public SleepOverride {
public:
    /// `programDirectories` are where those programs are; not PATH, which is the user's to set.
    AdministratorLock(QDBusConnection systemBus, InhibitorRequest request, QStringList programDirectories);
    ~AdministratorLock() override;

    AdministratorLock(const AdministratorLock&) = delete;
    AdministratorLock& operator=(const AdministratorLock&) = delete;

    /// Asks for an administrator's password, for as long as that takes. `done` gets, once, why there is no lock, or an
    /// empty text when logind lists it; it may destroy the object.
    void take(std::function<void(const QString& error)> done);

private:
    void hear();
    void check(std::function<void(bool isListed)> done);
    bool isOurs(const LogindInhibitor& inhibitor) const;
    void end(std::optional<int> status);
    void finish(const QString& error);
    void lose();

    QDBusConnection m_systemBus;
    InhibitorRequest m_request;
    QStringList m_programDirectories;
    std::function<void(const QString& error)> m_done;
    /// What cat reads, and what it writes.
    FileDescriptor m_input;
    FileDescriptor m_output;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::unique_ptr<StartedProgram> m_program;
    BusNameWatch m_logind;
    DBusCall m_check;
};

} // namespace Tarvik
