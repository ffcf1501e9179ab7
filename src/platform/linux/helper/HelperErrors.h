// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusMessage>
#include <QString>

/// What goes wrong with the background helper, as sentences for the user.
namespace Tarvik::HelperErrors {

/// Why a call to the helper has failed, or the bus could not start it.
QString describe(const QDBusMessage& error);

/// The helper has answered with something else than this version of the application understands.
QString otherVersion();

/// The helper was gone before it could be relied on.
QString hasEnded();

} // namespace Tarvik::HelperErrors
