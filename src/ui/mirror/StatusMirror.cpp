// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/StatusMirror.h"

#include "dbus/contracts/TarvikWire.h"

using namespace Qt::StringLiterals;

namespace Tarvik {

StatusMirror::StatusMirror(const QDBusConnection& bus)
    : PropertyMirror(
        bus, staticMetaObject, TarvikWire::statusInterface, {{u"isOnAC"_s, true}, {u"batteryPercent"_s, -1}})
    , m_why(bus)
{
}

QVariant StatusMirror::batteryPercent() const
{
    const QVariant percent = value("batteryPercent");
    return percent.toInt() < 0 ? QVariant() : percent;
}

void StatusMirror::setTimedSession(int minutes)
{
    call(u"SetTimedSession"_s, {minutes});
}

void StatusMirror::lockScreen()
{
    call(u"LockScreen"_s);
}

void StatusMirror::quit()
{
    call(u"Quit"_s);
}

} // namespace Tarvik
