// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tarvik::DBusErrors {

/// The positive errno that sd-bus-errors(3) pairs with a D-Bus error name; EIO for a name that it does not know.
int toErrno(const QString& errorName);

/// Whether a call failed because who was called was not on the bus, or left it before it had answered, or was about to
/// and had taken its objects back.
bool isPeerGone(const QString& errorName);

} // namespace Tarvik::DBusErrors
