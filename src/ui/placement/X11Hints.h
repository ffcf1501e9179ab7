// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

class QMargins;
class QString;
class QWindow;
struct xcb_connection_t;

/// What Qt has no function for on X11, by the Extended Window Manager Hints. Everything is a no-op on other platforms.
namespace Tarvik::X11Hints {

/// The application's; null on other platforms.
xcb_connection_t* connection();

/// Keeps a window that is not shown yet out of task bars and pagers.
void skipTaskbar(QWindow& window);

/// Tells how much of a window that is not shown yet is shadow, in its logical pixels, so that the window manager does
/// not keep that clear of bars and edges. By the hint that GTK has introduced.
void setShadow(QWindow& window, const QMargins& shadow);

/// Lets the pointer reach what is behind the shadow around a window, which is given in its logical pixels. By the input
/// region of the Shape extension (1.1), which cuts nothing of what is seen.
void letClicksThrough(QWindow& window, const QMargins& shadow);

/// Ties a window that is not shown yet to what the user did to open it, by the startup notification protocol. An empty
/// `id` changes nothing.
void setStartupId(QWindow& window, const QString& id);

/// Whether a compositor runs, without which transparent windows are black. True on other platforms.
bool isComposited();

} // namespace Tarvik::X11Hints
