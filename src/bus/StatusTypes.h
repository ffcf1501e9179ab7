// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>
#include <QList>
#include <QString>

namespace Tarvik {

/// One element of the property Leases, (sssdd).
struct StatusLease {
    QString key;
    QString tool;
    /// Empty when none was sent.
    QString reason;
    /// Seconds since 1970-01-01 00:00 UTC.
    double acquiredAt = 0;
    /// Seconds left at the moment of reading.
    double remaining = 0;

    bool operator==(const StatusLease&) const = default;
};

/// One element of the property Assertions, (sssb).
struct StatusAssertion {
    QString type;
    QString service;
    QString what;
    bool isEffective = false;

    bool operator==(const StatusAssertion&) const = default;
};

using StatusLeaseList = QList<StatusLease>;
using StatusAssertionList = QList<StatusAssertion>;

QDBusArgument& operator<<(QDBusArgument& argument, const StatusLease& lease);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusLease& lease);
QDBusArgument& operator<<(QDBusArgument& argument, const StatusAssertion& assertion);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusAssertion& assertion);

/// Makes the lists known to QtDBus. Once, before either is sent or received.
void registerStatusTypes();

} // namespace Tarvik

Q_DECLARE_METATYPE(Tarvik::StatusLease)
Q_DECLARE_METATYPE(Tarvik::StatusAssertion)
