// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/OrdinaryPanelHost.h"

#include <QQuickWindow>

namespace Tarvik {

OrdinaryPanelHost::OrdinaryPanelHost(QQuickWindow& panel)
    : PanelHost(panel)
{
    panel.setFlags(Qt::Dialog);
    connect(&panel, &QWindow::heightChanged, this, &OrdinaryPanelHost::fixSize);
    connect(&panel, &QWindow::widthChanged, this, &OrdinaryPanelHost::fixSize);
}

void OrdinaryPanelHost::open(QPoint, const QString& activationToken)
{
    fixSize();
    panel().show();
    // By this Qt tells the compositor that the user wanted the window.
    if (!activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    panel().requestActivate();
}

void OrdinaryPanelHost::fixSize()
{
    // Tiling compositors leave a window of fixed size as it is.
    panel().setMinimumSize(panel().size());
    panel().setMaximumSize(panel().size());
}

} // namespace Tarvik
