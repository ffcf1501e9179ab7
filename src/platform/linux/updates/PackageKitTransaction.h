// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "dbus/DBusSignal.h"
#include "platform/Clock.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace Tarvik {

/// One piece of work for PackageKit, see org.freedesktop.PackageKit.Transaction: begins when it is constructed and is
/// over when PackageKit says so, is gone, or has shown no sign of life for long, upon which the work is cancelled.
/// Starts PackageKit where need be. Destroying it does not cancel the work.
class PackageKitTransaction final {
public:
    struct Request {
        /// A method of the interface.
        QString method;
        QVariantList arguments;
        /// The user may be asked for a password.
        bool isInteractive = false;
    };

    struct Outcome {
        /// What went wrong, for the log.
        std::optional<QString> error;
        /// "name;version;architecture;data" of every package that was told of.
        QStringList packageIds;
    };

    /// After so much time without any signal of the transaction, and at the latest twice as much, it is given up. Long
    /// enough for whoever is asked for a password, and for another program's transaction to end.
    static constexpr Seconds patience{5.0 * 60};

    /// `clock` must outlive the object. `done` is called once, and may destroy the transaction.
    PackageKitTransaction(
        QDBusConnection bus, Clock& clock, Request request, std::function<void(const Outcome& outcome)> done);
    PackageKitTransaction(const PackageKitTransaction&) = delete;
    PackageKitTransaction& operator=(const PackageKitTransaction&) = delete;

private:
    void receiveSignal(const QDBusMessage& signal);
    void receiveFinished(const QDBusMessage& signal);
    void findOwner(const QDBusMessage& created);
    void begin();
    QDBusMessage methodCall(const QString& method) const;
    void giveUpUnlessAlive();
    void finish(const std::optional<QString>& error);

    QDBusConnection m_bus;
    Clock& m_clock;
    Request m_request;
    std::function<void(const Outcome& outcome)> m_done;
    Outcome m_outcome;
    QString m_errorDetails;
    /// Where the transaction is.
    QString m_owner;
    QString m_path;
    std::unique_ptr<BusNameWatch> m_life;
    std::unique_ptr<DBusSignal> m_signals;
    std::unique_ptr<DBusSignal> m_changes;
    bool m_hasShownLife = false;
    std::unique_ptr<Timer> m_lifeCheck;
    bool m_isFinished = false;
    DBusCall m_call;
};

} // namespace Tarvik
