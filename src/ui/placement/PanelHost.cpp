// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/PanelHost.h"

#include "ui/placement/LayerPanelHost.h"
#include "ui/placement/OrdinaryPanelHost.h"
#include "ui/placement/X11PanelHost.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace Tarvik {

std::unique_ptr<PanelHost> PanelHost::create(QQuickWindow& panel, const LayerShell* shell, const QDBusConnection& bus)
{
    if (shell != nullptr)
        return std::make_unique<LayerPanelHost>(panel, *shell, bus);
    if (QGuiApplication::platformName().startsWith("wayland"_L1))
        return std::make_unique<OrdinaryPanelHost>(panel);
    return std::make_unique<X11PanelHost>(panel);
}

PanelHost::PanelHost(QQuickWindow& panel)
    : m_panel(panel)
{
}

QMargins PanelHost::shadow() const
{
    const int extent = m_panel.property("shadowExtent").toInt();
    return {extent, m_panel.property("shadowExtentAbove").toInt(), extent, extent};
}

QSize PanelHost::surfaceSize() const
{
    return m_panel.size().shrunkBy(shadow());
}

} // namespace Tarvik
