// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/OrdinaryPanelHost.h"

#include "ui/placement/WindowActivation.h"

#include <QQuickWindow>

#include <algorithm>

namespace Tarvik {

OrdinaryPanelHost::OrdinaryPanelHost(QQuickWindow& panel)
    : PanelHost(panel)
{
    panel.setFlags(Qt::Dialog);
    // The content may grow while the compositor still confirms the size before, which would cut the last row off.
    connect(&panel, &QWindow::heightChanged, this, [&panel] {
        panel.setMinimumHeight(std::max(panel.minimumHeight(), panel.height()));
    });
}

void OrdinaryPanelHost::open(const TrayPoint&, const QString& activationToken)
{
    showAndActivate(panel(), activationToken);
}

} // namespace Tarvik
