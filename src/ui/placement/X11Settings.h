// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

#include <optional>

/// What X11 desktops tell all programs by the XSETTINGS protocol.
namespace Tarvik::X11Settings {

/// The property "_XSETTINGS_SETTINGS" of the display's settings daemon; empty without one.
QByteArray read(xcb_connection_t* x11);
/// Those of the display (as in DISPLAY).
QByteArray read(const QByteArray& display);

/// The value of an integer among the settings; nothing where there is none or they are broken.
std::optional<int> integer(const QByteArray& settings, const QByteArray& name);
/// The value of a text among the settings; nothing where there is none or they are broken.
std::optional<QByteArray> text(const QByteArray& settings, const QByteArray& name);

/// Whether the theme that the desktop has chosen for GTK is a dark one, which only its name tells.
bool isThemeDark(const QByteArray& settings);

/// All bytes of a property of a window; empty where there is none.
QByteArray property(xcb_connection_t* x11, xcb_window_t window, xcb_atom_t name);

} // namespace Tarvik::X11Settings
