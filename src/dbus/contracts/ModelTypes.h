// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/AllowlistedApp.h"

#include <QDBusArgument>

namespace Tarvik {

/// One element of the property entries of com.morvanta.Tarvik.Journal1, (sdss).
struct JournalRow {
    QString id;
    /// Seconds since 1970-01-01 00:00 UTC.
    double at = 0;
    /// "on", "off", "paused" or "resumed".
    QString kind;
    QString reason;

    bool operator==(const JournalRow&) const = default;
};

QDBusArgument& operator<<(QDBusArgument& argument, const JournalRow& row);
const QDBusArgument& operator>>(const QDBusArgument& argument, JournalRow& row);
QDBusArgument& operator<<(QDBusArgument& argument, const AllowlistedApp& app);
const QDBusArgument& operator>>(const QDBusArgument& argument, AllowlistedApp& app);

/// Makes these types, lists of them, and numbers by their names (a{sd}) known to QtDBus. Before any of them is sent or
/// received.
void registerModelTypes();

} // namespace Tarvik

Q_DECLARE_METATYPE(Tarvik::JournalRow)
Q_DECLARE_METATYPE(Tarvik::AllowlistedApp)
