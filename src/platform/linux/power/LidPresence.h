// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCall.h"

#include <QDBusConnection>
#include <QString>
#include <QVariantMap>

#include <functional>
#include <optional>

namespace Tarvik {

/// Whether the machine has a lid, as UPower (org.freedesktop.UPower, LidIsPresent) or the kernel says: logind says that
/// a lid which does not exist is open.
class LidPresence final {
public:
    /// Asks at once. `procfs` and `sysfs` are "/proc" and "/sys" on a real machine.
    LidPresence(QDBusConnection systemBus, QString procfs, QString sysfs);
    LidPresence(const LidPresence&) = delete;
    LidPresence& operator=(const LidPresence&) = delete;

    /// Nothing until UPower has answered, or failed to.
    std::optional<bool> isPresent() const { return m_isPresent; }

    void ask();

    /// What UPower says of itself, all of it or what has changed.
    void take(const QVariantMap& upowerProperties);

    /// `isPresent()` says something new.
    std::function<void()> onChange;

private:
    void set(bool isPresent);
    bool hasKernelLid() const;

    QDBusConnection m_systemBus;
    QString m_procfs;
    QString m_sysfs;
    DBusCall m_question;
    std::optional<bool> m_isPresent;
};

} // namespace Tarvik
