// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/X11Scale.h"

#include "base/Releaser.h"
#include "ui/placement/X11Settings.h"

#include <QByteArrayList>

#include <xcb/xcb.h>

namespace Tarvik::X11Scale {

namespace {

constexpr double unscaledResolution = 96;
constexpr int largestFactor = 4;

} // namespace

int missingFactor(const QByteArray& display)
{
    const Owned<xcb_connection_t, xcb_disconnect> x11(xcb_connect(display.constData(), nullptr));
    if (xcb_connection_has_error(x11.get()) != 0)
        return 1;
    const int factor = X11Settings::integer(X11Settings::read(x11.get()), "Gdk/WindowScalingFactor").value_or(1);
    if (factor <= 1 || factor > largestFactor)
        return 1;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(x11.get())).data->root;
    const auto resolution = fontResolution(X11Settings::property(x11.get(), root, XCB_ATOM_RESOURCE_MANAGER));
    return resolution.value_or(unscaledResolution) < factor * unscaledResolution ? factor : 1;
}

std::optional<double> fontResolution(const QByteArray& resources)
{
    for (const QByteArray& line : resources.split('\n')) {
        if (!line.startsWith("Xft.dpi:"))
            continue;
        bool isNumber = false;
        const double value = line.mid(line.indexOf(':') + 1).trimmed().toDouble(&isNumber);
        if (isNumber)
            return value;
    }
    return std::nullopt;
}

} // namespace Tarvik::X11Scale
