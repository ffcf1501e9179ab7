// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QMetaType>
#include <QString>
#include <QVariant>

#include <optional>

/// Values as they come from the bus, before anybody has looked at their types.
namespace Tarvik::WireValue {

/// How the bus writes a type, such as "a(ss)"; empty for a type that it does not know.
QString signatureOf(QMetaType type);

/// The value as exactly this type; an invalid one for a value of another type. Nothing is converted.
QVariant as(QMetaType type, const QVariant& value);

/// The point in time so many seconds after 1970-01-01 00:00 UTC, if it lies between the years 1 and 9999.
std::optional<QDateTime> toDateTime(double seconds);

} // namespace Tarvik::WireValue
