// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusMessage>
#include <QString>
#include <QVariantList>

/// The bus itself, org.freedesktop.DBus.
namespace Tarvik::BusDaemon {

QDBusMessage call(const QString& method, const QVariantList& arguments);

/// The unique name that an answer to GetNameOwner tells; empty when nobody owns the name.
QString ownerIn(const QDBusMessage& answer);

} // namespace Tarvik::BusDaemon
