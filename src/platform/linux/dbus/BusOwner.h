// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusMessage>
#include <QString>

/// Who owns a well-known name, asked of the bus itself (org.freedesktop.DBus.GetNameOwner). Starts no service.
namespace Tarvik::BusOwner {

QDBusMessage question(const QString& name);

/// The unique name that `answer` tells; empty when there is no owner.
QString in(const QDBusMessage& answer);

} // namespace Tarvik::BusOwner
