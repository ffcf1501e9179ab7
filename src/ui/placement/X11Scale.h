// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

/// The scale of desktops that tell it to GTK only: Qt follows no other setting than "Xft.dpi".
namespace Tarvik::X11Scale {

/// By how much the windows of Qt programs are smaller than those of GTK on the display (as in DISPLAY): 1 where both
/// agree or nothing is known.
int missingFactor(const QByteArray& display);

/// The value of "Xft.dpi" in the root window's property "RESOURCE_MANAGER".
std::optional<double> fontResolution(const QByteArray& resources);

} // namespace Tarvik::X11Scale
