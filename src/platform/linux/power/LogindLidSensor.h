// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "dbus/DBusSignal.h"
#include "platform/Clock.h"
#include "platform/LidSensor.h"
#include "platform/linux/power/LidPresence.h"

#include <QDBusConnection>
#include <QVariantMap>

#include <memory>
#include <optional>

namespace Tarvik {

/// The lid as logind sees it (org.freedesktop.login1.Manager, LidClosed); without logind as UPower sees it, and without
/// either as the kernel's ACPI button driver does. Few releases of logind announce the lid, so every call of
/// `isClosed()` asks again, and `changed` tells of an answer that is another than the one last given.
class LogindLidSensor final : public LidSensor {
public:
    /// `connection` is that to the system bus; `procfs` and `sysfs` are "/proc" and "/sys" on a real machine.
    LogindLidSensor(QDBusConnection connection,
        Clock& clock,
        QString procfs = QStringLiteral("/proc"),
        QString sysfs = QStringLiteral("/sys"));

    std::optional<bool> isPresent() const override { return m_presence.isPresent(); }

    /// An answer that has grown old because nobody asked since is no answer: whoever begins to ask hears nothing first.
    std::optional<bool> isClosed() override;

private:
    enum class Provider {
        logind,
        upower,
        acpi,
    };

    void ask();
    void askAcpi();
    void takeAnswer(Provider provider, const QDBusMessage& answer);
    void useNextProvider();
    void take(std::optional<bool> closed);
    void followAnnouncements();
    void takeAnnouncement(Provider provider, const QDBusMessage& signal);
    void changeOwner(const QString& service);

    QDBusConnection m_connection;
    BusNameWatch m_names;
    std::unique_ptr<DBusSignal> m_logindChanges;
    std::unique_ptr<DBusSignal> m_upowerChanges;
    Clock& m_clock;
    QString m_procfs;
    LidPresence m_presence;
    Provider m_provider = Provider::logind;
    /// The question under way.
    DBusCall m_question;
    std::optional<bool> m_closed;
    TimePoint m_closedAt;
    /// What `isClosed()` last said.
    std::optional<bool> m_told;
};

} // namespace Tarvik
