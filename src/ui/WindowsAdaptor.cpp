// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/WindowsAdaptor.h"

namespace Tarvik {

void WindowsAdaptor::ShowPanel(int x, int y, const QString& activationToken)
{
    if (onShowPanel)
        onShowPanel(x, y, activationToken);
}

void WindowsAdaptor::ShowSettings(const QString& activationToken)
{
    if (onShowSettings)
        onShowSettings(activationToken);
}

} // namespace Tarvik
