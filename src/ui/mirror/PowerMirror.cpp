// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/PowerMirror.h"

#include "dbus/contracts/TarvikWire.h"

using namespace Qt::StringLiterals;

namespace Tarvik {

PowerMirror::PowerMirror(const QDBusConnection& bus)
    : PropertyMirror(
        bus, staticMetaObject, TarvikWire::powerInterface, {{u"isOnAC"_s, true}, {u"batteryPercent"_s, -1}})
{
}

QVariant PowerMirror::batteryPercent() const
{
    const QVariant percent = value("batteryPercent");
    return percent.toInt() < 0 ? QVariant() : percent;
}

} // namespace Tarvik
