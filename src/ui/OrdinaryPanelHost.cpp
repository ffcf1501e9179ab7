// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/OrdinaryPanelHost.h"

#include <QQuickWindow>

namespace Tarvik {

OrdinaryPanelHost::OrdinaryPanelHost(QQuickWindow& panel)
    : PanelHost(panel)
{
    panel.setFlags(Qt::Dialog);
}

void OrdinaryPanelHost::open(QPoint, const QString& activationToken)
{
    panel().show();
    // By this Qt tells the compositor that the user wanted the window.
    if (!activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    panel().requestActivate();
}

} // namespace Tarvik
