// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

class QWindow;

/// What Qt has no function for on X11, by the Extended Window Manager Hints. Everything is a no-op on other platforms.
namespace Tarvik::X11Hints {

/// Keeps a window that is not shown yet out of task bars and pagers.
void skipTaskbar(QWindow& window);

/// Whether a compositor runs, without which transparent windows are black. True on other platforms.
bool isComposited();

} // namespace Tarvik::X11Hints
