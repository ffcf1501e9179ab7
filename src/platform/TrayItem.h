// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"
#include "platform/TrayMenu.h"

namespace Tarvik {

/// What the item in the tray looks like and says. All texts are plain.
struct TrayAppearance {
    /// One of the application's images: "MenuActive", "MenuIdle" or "MenuLooking".
    QString imageName;
    QString title;
    QString tooltipTitle;
    QString tooltipBody;

    bool operator==(const TrayAppearance&) const = default;
};

/// The application's item in the desktop's tray. It is there from construction to destruction, as far as there is a
/// tray that shows it.
class TrayItem {
public:
    virtual ~TrayItem() = default;

    virtual void setAppearance(const TrayAppearance& appearance) = 0;
    virtual void setMenu(const TrayMenu& menu) = 0;

    /// A tray shows the item now.
    virtual bool hasHost() const = 0;

    /// The item was clicked. On X11 `x` and `y` are root coordinates of the click; elsewhere they are a hint at best.
    /// The token, when not empty, lets a window that opens in answer take the focus.
    Signal<void(int x, int y, const QString& activationToken)> activated;

    /// The user chose the enabled entry with this `id`.
    Signal<void(int id)> menuActivated;

    /// `hasHost` has changed.
    Signal<void()> hostChanged;
};

} // namespace Tarvik
