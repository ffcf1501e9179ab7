// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/SettingsMirror.h"

#include "bus/UiWire.h"

namespace Tarvik {

SettingsMirror::SettingsMirror(const QDBusConnection& bus)
    : PropertyMirror(bus, staticMetaObject, QString::fromLatin1(UiWire::settingsInterface))
{
}

} // namespace Tarvik
