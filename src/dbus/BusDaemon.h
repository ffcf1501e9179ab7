// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusSignal.h"

#include <QDBusMessage>
#include <QString>
#include <QVariantList>

/// The bus itself, org.freedesktop.DBus.
namespace Tarvik::BusDaemon {

QDBusMessage call(const QString& method, const QVariantList& arguments);

/// The unique name that an answer to GetNameOwner tells; empty when nobody owns the name.
QString ownerIn(const QDBusMessage& answer);

/// Told once, by this process's own end of the connection, when the connection to the bus is lost.
DBusSignal::Source lossOfConnection();

} // namespace Tarvik::BusDaemon
