// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCall.h"

#include <QStringView>

#include <functional>

namespace Tarvik::SystemdVersion {

/// From this release on a "sleep" lock also stops its own user's programs.
constexpr int locksBindTheirOwner = 257;

/// The major version in systemd's own words ("252.39-1~deb12u1", "v257"); 0 when there is none.
int parse(QStringView text);

/// Asks the systemd that runs the machine; `done` gets 0 later where none does.
[[nodiscard]] DBusCall ask(const QDBusConnection& systemBus, std::function<void(int version)> done);

} // namespace Tarvik::SystemdVersion
