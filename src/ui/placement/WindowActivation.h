// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QWindow;

namespace Tarvik {

/// Shows a window and asks for the focus. `activationToken` ties that to what the user did to open it, by
/// xdg-activation or by the startup notification protocol; it may be empty.
void showAndActivate(QWindow& window, const QString& activationToken);

} // namespace Tarvik
