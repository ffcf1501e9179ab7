// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "engine/LaunchAtLogin.h"

#include "core/AppSettings.h"
#include "core/Logging.h"
#include "platform/LoginItem.h"

namespace Tarvik {

void mirrorLaunchAtLogin(const LoginItem& item, AppSettings& settings)
{
    settings.setLaunchAtLogin(item.isEnabled());
}

Subscription followLaunchAtLogin(LoginItem& item, AppSettings& settings)
{
    return item.changed.subscribe([&item, &settings] {
        if (item.isEnabled() != settings.launchAtLogin())
            mirrorLaunchAtLogin(item, settings);
    });
}

void changeLaunchAtLogin(LoginItem& item, AppSettings& settings, bool on)
{
    if (const auto error = on ? item.registerItem() : item.unregisterItem())
        qCCritical(logCoordinator, "Launch-at-login change failed: %s", qUtf8Printable(*error));
    mirrorLaunchAtLogin(item, settings);
}

} // namespace Tarvik
