// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/CoordinatorMirror.h"

#include "dbus/contracts/TarvikWire.h"

using namespace Qt::StringLiterals;

namespace Tarvik {

CoordinatorMirror::CoordinatorMirror(const QDBusConnection& bus)
    : PropertyMirror(bus, staticMetaObject, TarvikWire::coordinatorInterface)
{
}

void CoordinatorMirror::setTimedSession(int minutes)
{
    call(u"SetTimedSession"_s, {minutes});
}

void CoordinatorMirror::lockScreen()
{
    call(u"LockScreen"_s);
}

void CoordinatorMirror::quit()
{
    call(u"Quit"_s);
}

} // namespace Tarvik
