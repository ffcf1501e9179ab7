// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/assertions/DesktopHoldRules.h"

#include "platform/linux/inhibitors/SystemdVersion.h"

#include <algorithm>
#include <array>

namespace Tarvik::DesktopHoldRules {

namespace {

constexpr std::array idleDaemonDesktops{
    QStringView(u"sway"),
    QStringView(u"labwc"),
    QStringView(u"Hyprland"),
    QStringView(u"niri"),
    QStringView(u"river"),
    QStringView(u"Wayfire"),
    QStringView(u"wlroots"),
    QStringView(u"COSMIC"),
};

QList<DesktopHold> logindOnly(const DesktopFacts& facts, DesktopHold hold)
{
    return facts.logind ? QList{hold} : QList<DesktopHold>{};
}

/// PowerDevil is there with the interface that other programs use.
bool isKde(const DesktopFacts& facts)
{
    return facts.kdePowerManager && facts.powerManagement;
}

bool isXfceThatSuspends(const DesktopFacts& facts)
{
    return facts.xfcePowerManager && facts.powerManagement && facts.xfceSuspendsWhenIdle;
}

} // namespace

QList<DesktopHold> againstSystemSleep(const DesktopFacts& facts)
{
    // KDE reads logind's "idle" as "keep the screen on".
    if (isKde(facts))
        return {DesktopHold::kdePowerManagement};
    // On XFCE the call keeps the screen on too, so it is made only where XFCE would suspend.
    if (isXfceThatSuspends(facts))
        return {DesktopHold::xfcePowerManagement};
    if (facts.sessionManager)
        return QList{DesktopHold::sessionManagerSuspend} + logindOnly(facts, DesktopHold::logindIdle);
    const bool suspendsByCommand = !facts.xfcePowerManager && (facts.lxqtSession || facts.idleDaemonSuspends);
    // Then the lock also stops an idle daemon's suspend command.
    if (suspendsByCommand && facts.systemdVersion >= SystemdVersion::locksBindTheirOwner)
        return logindOnly(facts, DesktopHold::logindSleep);
    // LXQt goes by the X server alone, so that the screen stays on too.
    const bool suspendsByXServer = suspendsByCommand && facts.lxqtSession && facts.x11Screen;
    return (suspendsByXServer ? QList{DesktopHold::x11ScreenSaver} : QList<DesktopHold>{})
        + logindOnly(facts, DesktopHold::logindIdle);
}

QList<DesktopHold> againstDisplaySleep(const DesktopFacts& facts)
{
    if (isKde(facts))
        return facts.screenSaver ? QList{DesktopHold::screenSaver} : QList<DesktopHold>{};
    if (facts.xfcePowerManager && facts.powerManagement)
        return {DesktopHold::xfcePowerManagement};
    if (facts.sessionManager)
        return {DesktopHold::sessionManagerIdle};
    // LXQt, and window managers without a desktop, go by the X server. Of the others, some idle daemons listen to the
    // one, some to the other, and which of them runs cannot be told.
    return (facts.x11Screen ? QList{DesktopHold::x11ScreenSaver} : QList<DesktopHold>{})
        + (facts.screenSaver ? QList{DesktopHold::screenSaver} : QList<DesktopHold>{})
        + logindOnly(facts, DesktopHold::logindIdle);
}

QList<DesktopHold> rearmingSystemSleep(const DesktopFacts& facts)
{
    const bool goesByXServer = isXfceThatSuspends(facts) || facts.lxqtSession || facts.cinnamonPowerManager;
    if (goesByXServer && facts.x11Screen && !isKde(facts))
        return {DesktopHold::x11ScreenSaver};
    // Idle daemons start counting anew after an "idle" lock.
    return againstSystemSleep(facts) == QList{DesktopHold::logindSleep} ? QList{DesktopHold::logindIdle}
                                                                        : QList<DesktopHold>{};
}

bool namesIdleDaemonDesktop(QStringView currentDesktop)
{
    return std::ranges::any_of(currentDesktop.split(u':'), [](QStringView name) {
        return std::ranges::any_of(
            idleDaemonDesktops, [name](QStringView known) { return name.compare(known, Qt::CaseInsensitive) == 0; });
    });
}

} // namespace Tarvik::DesktopHoldRules
