// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/ThermalMirror.h"

#include "bus/UiWire.h"

namespace Tarvik {

ThermalMirror::ThermalMirror(const QDBusConnection& bus)
    : PropertyMirror(bus, staticMetaObject, UiWire::thermalInterface)
{
}

} // namespace Tarvik
