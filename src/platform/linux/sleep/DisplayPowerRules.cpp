// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/DisplayPowerRules.h"

namespace Tarvik::DisplayPowerRules {

QList<DisplayWay> ways(const DisplayFacts& facts)
{
    QList<DisplayWay> ways;
    if (facts.kdePowerManager) {
        if (facts.kglobalaccel)
            ways.append(DisplayWay::kdeShortcut);
        ways.append(DisplayWay::kscreenDoctor);
    }
    if (facts.gnomeScreenSaver && facts.gnomePowerManager)
        ways.append(DisplayWay::gnomeScreenSaver);
    if (facts.mutter)
        ways.append(DisplayWay::mutterPowerSave);
    if (facts.wayland)
        ways.append(DisplayWay::waylandOutputPower);
    else if (facts.x11)
        ways.append(DisplayWay::x11Dpms);
    return ways;
}

} // namespace Tarvik::DisplayPowerRules
