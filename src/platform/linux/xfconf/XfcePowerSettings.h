// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusMessage>
#include <QString>
#include <QVariant>
#include <QVersionNumber>

/// What xfce4-power-manager keeps in Xfconf, in the channel of its name.
namespace Tarvik::XfcePowerSettings {

/// The call that asks Xfconf for the property that is called so ("inactivity-on-ac").
QDBusMessage question(const QString& property);

/// The value that the answer tells; an invalid one where none is set, or for an error.
QVariant valueIn(const QDBusMessage& answer);

/// The call that asks the power manager for its release, and what the answer tells; a null version for an error.
QDBusMessage releaseQuestion();
QVersionNumber releaseIn(const QDBusMessage& answer);

/// Whether a time of inactivity, in minutes, means "never" to that release: up to 4.18 that is 14, since then it is 0;
/// both are where the release is unknown (a null version).
bool isNever(uint minutes, const QVersionNumber& release);

/// Whether the release is known, and is 4.18 or earlier.
bool isOld(const QVersionNumber& release);

} // namespace Tarvik::XfcePowerSettings
