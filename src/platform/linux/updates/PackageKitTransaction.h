// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/dbus/DBusCall.h"

#include <QDBusServiceWatcher>
#include <QObject>
#include <QStringList>

#include <functional>
#include <optional>

namespace Tarvik {

/// One piece of work for PackageKit, see org.freedesktop.PackageKit.Transaction: begins when it is constructed and is
/// over when PackageKit says so, or is gone. Starts PackageKit where need be. Destroying it does not cancel the work.
class PackageKitTransaction final : public QObject {
    Q_OBJECT

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

    /// `done` is called once, and may destroy the transaction.
    PackageKitTransaction(QDBusConnection bus, Request request, std::function<void(const Outcome& outcome)> done);
    PackageKitTransaction(const PackageKitTransaction&) = delete;
    PackageKitTransaction& operator=(const PackageKitTransaction&) = delete;

private Q_SLOTS:
    void receivePackage(const QDBusMessage& signal);
    void receiveErrorCode(const QDBusMessage& signal);
    void receiveFinished(const QDBusMessage& signal);

private:
    void begin(const QDBusMessage& created);
    void listen(const QString& service, const QString& path);
    QDBusMessage methodCall(const QString& service, const QString& path, const QString& method) const;
    void finish(const std::optional<QString>& error);

    QDBusConnection m_bus;
    Request m_request;
    std::function<void(const Outcome& outcome)> m_done;
    Outcome m_outcome;
    QString m_errorDetails;
    QDBusServiceWatcher m_watcher;
    bool m_isFinished = false;
    DBusCall m_call;
};

} // namespace Tarvik
