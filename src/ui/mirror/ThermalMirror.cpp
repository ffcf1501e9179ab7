// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/ThermalMirror.h"

#include "dbus/contracts/TarvikWire.h"

namespace Tarvik {

ThermalMirror::ThermalMirror(const QDBusConnection& bus)
    : PropertyMirror(bus, staticMetaObject, TarvikWire::thermalInterface)
{
}

} // namespace Tarvik
