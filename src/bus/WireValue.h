// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QString>
#include <QVariant>

/// Values as they come from the bus, before anybody has looked at their types.
namespace Tarvik::WireValue {

/// How the bus writes a type, such as "a(ss)"; empty for a type that it does not know.
QString signatureOf(QMetaType type);

/// The value as exactly this type; an invalid one for a value of another type. Nothing is converted.
QVariant as(QMetaType type, const QVariant& value);

} // namespace Tarvik::WireValue
