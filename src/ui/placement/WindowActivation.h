// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

class QQuickItem;
class QString;
class QWindow;

namespace Tarvik {

/// Shows a window and asks for the focus. `activationToken` ties that to what the user did to open it, by
/// xdg-activation or by the startup notification protocol; it may be empty.
void showAndActivate(QWindow& window, const QString& activationToken);

/// Lays out what would otherwise be laid out with the first frame, so that a window has its size before it is shown.
void layOut(QQuickItem& item);

/// Ends what Qt leaves of the focus of a window that closes. The application listens to the window that has the focus,
/// but does not stop when that window closes: it would listen once more with every opening, and act as often on every
/// move of the focus. Call it whenever a window is hidden that may be shown again.
void forgetFocus(QWindow& window);

} // namespace Tarvik
