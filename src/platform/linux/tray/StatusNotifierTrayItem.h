// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/TrayItem.h"
#include "platform/linux/tray/DBusMenu.h"
#include "platform/linux/tray/StatusNotifierItem.h"
#include "platform/linux/tray/TrayHostRegistration.h"

namespace Tarvik {

/// The StatusNotifierItem of the freedesktop.org draft as the desktops implement it, with a com.canonical.dbusmenu.
class StatusNotifierTrayItem final : public TrayItem {
public:
    /// `iconDirectory` is the bundle's "Contents/Resources/icons": trays look for the icons there where they are not
    /// installed in the desktop's own icon theme.
    /// `clock` must outlive the object.
    StatusNotifierTrayItem(const QDBusConnection& sessionBus, const QString& iconDirectory, Clock& clock);

    void setAppearance(const TrayAppearance& appearance) override;
    void setMenu(const TrayMenu& menu) override;
    bool hasHost() const override { return m_registration.hasHost(); }

private:
    DBusMenu m_menu;
    StatusNotifierItem m_item;
    TrayHostRegistration m_registration;
};

} // namespace Tarvik
