// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/LidClosedMirror.h"

#include "dbus/contracts/TarvikWire.h"

using namespace Qt::StringLiterals;

namespace Tarvik {

LidClosedMirror::LidClosedMirror(const QDBusConnection& bus)
    : PropertyMirror(bus, staticMetaObject, TarvikWire::lidClosedInterface, {{u"hasLid"_s, true}})
{
}

void LidClosedMirror::installHelper()
{
    call(u"InstallHelper"_s);
}

void LidClosedMirror::reinstallHelper()
{
    call(u"ReinstallHelper"_s);
}

void LidClosedMirror::refreshHelperStatus()
{
    call(u"RefreshHelperStatus"_s);
}

void LidClosedMirror::finishOnboarding()
{
    call(u"FinishOnboarding"_s);
}

void LidClosedMirror::relaunch()
{
    call(u"Relaunch"_s);
}

} // namespace Tarvik
