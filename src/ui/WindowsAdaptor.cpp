// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/WindowsAdaptor.h"

namespace Tarvik {

void WindowsAdaptor::ShowPanel(int x, int y, const QString& activationToken)
{
    if (onShowPanel)
        onShowPanel(x, y, activationToken);
}

void WindowsAdaptor::ShowPanelAtTray(int x, int y, const QString& activationToken)
{
    if (onShowPanelAtTray)
        onShowPanelAtTray(x, y, activationToken);
}

void WindowsAdaptor::ShowSettings(const QString& activationToken)
{
    if (onShowSettings)
        onShowSettings(activationToken);
}

void WindowsAdaptor::ShowOnboarding(const QString& activationToken)
{
    if (onShowOnboarding)
        onShowOnboarding(activationToken);
}

void WindowsAdaptor::ShowRestartAlert(const QString& activationToken)
{
    if (onShowRestartAlert)
        onShowRestartAlert(activationToken);
}

void WindowsAdaptor::ShowHelperApproval(const QString& activationToken)
{
    if (onShowHelperApproval)
        onShowHelperApproval(activationToken);
}

} // namespace Tarvik
