// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCall.h"

#include <QDBusMessage>
#include <QStringView>

#include <functional>

namespace Tarvik::SystemdVersion {

/// From this release on a "sleep" lock also stops its own user's programs.
constexpr int locksBindTheirOwner = 257;

/// The major version in systemd's own words ("252.39-1~deb12u1", "v257"); 0 when there is none.
int parse(QStringView text);

/// The question for the version of the systemd that runs the machine, and what the answer tells; 0 for an error or
/// anything else.
QDBusMessage question();
int in(const QDBusMessage& answer);

/// Asks the systemd that runs the machine; `done` gets 0 later where none does.
[[nodiscard]] DBusCall ask(const QDBusConnection& systemBus, std::function<void(int version)> done);

} // namespace Tarvik::SystemdVersion
