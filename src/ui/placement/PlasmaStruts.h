// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCalls.h"

#include <QMargins>
#include <QRect>

#include <functional>

namespace Tarvik {

/// What the bars of Plasma 5 take of a screen, by org.kde.PlasmaShell.StrutManager of plasmashell. Its compositor
/// keeps windows of the layer shell clear of other such windows only, and its bars are none before Plasma 6.
class PlasmaStruts final {
public:
    /// `sessionVersion` is what KDE_SESSION_VERSION says; nothing is asked unless it is "5".
    PlasmaStruts(const QDBusConnection& bus, const QByteArray& sessionVersion);

    /// Calls `answer` with the space at the edges of the screen, at once where there is nothing to ask, and with none
    /// where there is no answer soon.
    void ask(const QString& screen, const QRect& geometry, const std::function<void(QMargins)>& answer);

private:
    QDBusConnection m_bus;
    bool m_isPlasma5;
    DBusCalls m_calls;
};

} // namespace Tarvik
