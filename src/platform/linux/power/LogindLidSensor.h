// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/LidSensor.h"
#include "platform/linux/dbus/DBusCall.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QVariantMap>

#include <optional>

namespace Tarvik {

/// The lid as logind sees it (org.freedesktop.login1.Manager, LidClosed); without logind as UPower sees it, and without
/// either as the kernel's ACPI button driver does. Few releases of logind announce the lid, so every call of
/// `isClosed()` asks again, and `onChange` tells of an answer that is another than the one last given.
class LogindLidSensor final : public QObject, public LidSensor {
    Q_OBJECT

public:
    /// `connection` is that to the system bus; `procfs` is "/proc" on a real machine.
    LogindLidSensor(QDBusConnection connection, Clock& clock, QString procfs = QStringLiteral("/proc"));

    /// An answer that has grown old because nobody asked since is no answer: whoever begins to ask hears nothing first.
    std::optional<bool> isClosed() override;

private:
    enum class Provider {
        logind,
        upower,
        acpi,
    };

    Q_SLOT void propertiesChanged(const QDBusMessage& signal);

    void ask();
    void askAcpi();
    void takeAnswer(Provider provider, const QDBusMessage& answer);
    void useNextProvider();
    void take(std::optional<bool> closed);
    void serviceChanged(const QString& service, bool isThere);

    QDBusConnection m_connection;
    QDBusServiceWatcher m_watcher;
    Clock& m_clock;
    QString m_procfs;
    Provider m_provider = Provider::logind;
    /// The question under way.
    DBusCall m_question;
    std::optional<bool> m_closed;
    TimePoint m_closedAt;
    /// What `isClosed()` last said.
    std::optional<bool> m_told;
};

} // namespace Tarvik
