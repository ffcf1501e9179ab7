// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/assertions/DesktopHold.h"

#include "dbus/BusNames.h"
#include "platform/linux/inhibitors/LogindInhibitors.h"
#include "platform/linux/inhibitors/ServiceLabels.h"

#include <QCoreApplication>

namespace Tarvik::DesktopHolds {

using namespace Qt::StringLiterals;

namespace {

/// Always the same because KDE, which shows it, lets its user forbid an inhibitor by program and reason.
QString reason()
{
    return QCoreApplication::translate("DesktopHold", "Work is in progress");
}

constexpr uint inhibitSuspend = 4;
constexpr uint inhibitIdle = 8;

InhibitorRequest sessionManager(uint flags, const QString& who)
{
    constexpr uint noWindow = 0;
    return {.service = BusNames::sessionManager,
        .path = u"/org/gnome/SessionManager"_s,
        .interface = u"org.gnome.SessionManager"_s,
        .arguments = {who, noWindow, reason(), flags},
        .releaseMethod = u"Uninhibit"_s};
}

InhibitorRequest cookie(const QString& service, const QString& path, const QString& interface, const QString& who)
{
    return {.service = service,
        .path = path,
        .interface = interface,
        .arguments = {who, reason()},
        .releaseMethod = u"UnInhibit"_s};
}

} // namespace

QString serviceLabel(DesktopHold hold)
{
    switch (hold) {
    case DesktopHold::logindIdle:
    case DesktopHold::logindSleep:
        return ServiceLabels::logind;
    case DesktopHold::sessionManagerSuspend:
    case DesktopHold::sessionManagerIdle:
        return ServiceLabels::sessionManager;
    case DesktopHold::kdePowerManagement:
        return ServiceLabels::kdePowerManagement;
    case DesktopHold::xfcePowerManagement:
        return ServiceLabels::xfcePowerManagement;
    case DesktopHold::screenSaver:
        return ServiceLabels::screenSaver;
    case DesktopHold::x11ScreenSaver:
        return u"X server"_s;
    }
    Q_UNREACHABLE();
}

QString what(DesktopHold hold)
{
    switch (hold) {
    case DesktopHold::logindIdle:
    case DesktopHold::sessionManagerIdle:
        return u"idle"_s;
    case DesktopHold::logindSleep:
        return u"sleep"_s;
    case DesktopHold::sessionManagerSuspend:
        return u"suspend"_s;
    case DesktopHold::kdePowerManagement:
    case DesktopHold::xfcePowerManagement:
    case DesktopHold::screenSaver:
        return u"inhibit"_s;
    case DesktopHold::x11ScreenSaver:
        return u"screen saver"_s;
    }
    Q_UNREACHABLE();
}

bool isOnSystemBus(DesktopHold hold)
{
    return hold == DesktopHold::logindIdle || hold == DesktopHold::logindSleep;
}

InhibitorRequest request(DesktopHold hold, const QString& who)
{
    switch (hold) {
    case DesktopHold::logindIdle:
    case DesktopHold::logindSleep:
        return LogindInhibitors::request(what(hold), who, reason());
    case DesktopHold::sessionManagerSuspend:
        return sessionManager(inhibitSuspend, who);
    case DesktopHold::sessionManagerIdle:
        return sessionManager(inhibitIdle, who);
    case DesktopHold::kdePowerManagement:
    case DesktopHold::xfcePowerManagement:
        return cookie(BusNames::powerManagement,
            u"/org/freedesktop/PowerManagement/Inhibit"_s,
            u"org.freedesktop.PowerManagement.Inhibit"_s,
            who);
    case DesktopHold::screenSaver:
        return cookie(BusNames::screenSaver, u"/org/freedesktop/ScreenSaver"_s, u"org.freedesktop.ScreenSaver"_s, who);
    case DesktopHold::x11ScreenSaver:
        break;
    }
    Q_UNREACHABLE();
}

} // namespace Tarvik::DesktopHolds
