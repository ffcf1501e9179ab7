// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/LayerPanelHost.h"

#include "ui/placement/LayerShell.h"
#include "ui/placement/LayerSurface.h"
#include "ui/placement/PanelPlacement.h"
#include "ui/placement/ScreenCover.h"

#include <QGuiApplication>
#include <QPointer>
#include <QQuickWindow>
#include <QScreen>

#include <utility>

using namespace std::chrono_literals;

namespace Tarvik {

namespace {

/// A compositor tells a new window under the pointer so within a few milliseconds. That the pointer is on none, for
/// example on a window that lies above all others, is rare.
constexpr auto pointerPatience = 150ms;

} // namespace

LayerPanelHost::LayerPanelHost(QQuickWindow& panel, const LayerShell& shell, const QDBusConnection& bus)
    : PanelHost(panel)
    , m_shell(shell)
    , m_struts(bus, qgetenv("KDE_SESSION_VERSION"))
{
    panel.setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    m_pointerPatience.setSingleShot(true);
    connect(&m_pointerPatience, &QTimer::timeout, this, &LayerPanelHost::openAtPoint);
    connect(&panel, &QWindow::heightChanged, this, &LayerPanelHost::resize);
    connect(&panel, &QWindow::widthChanged, this, &LayerPanelHost::resize);
    connect(&panel, &QQuickWindow::frameSwapped, this, &LayerPanelHost::showCursor);
    // Comes before the window's surface goes, and the place must go first.
    connect(&panel, &QWindow::visibleChanged, this, [this](bool visible) {
        if (!visible)
            close();
    });
}

LayerPanelHost::~LayerPanelHost() = default;

void LayerPanelHost::open(const TrayPoint& tray, const QString&)
{
    if (!m_covers.empty())
        return;
    m_tray = tray;
    for (QScreen* screen : QGuiApplication::screens()) {
        Cover cover(new ScreenCover(m_shell, *screen));
        if (!m_hasCursor)
            cover->setCursor(Qt::BlankCursor);
        if (tray.isClicked)
            connect(cover.get(), &ScreenCover::entered, this, [this, screen](QPoint point) { openAt(*screen, point); });
        connect(cover.get(), &ScreenCover::placed, this, &LayerPanelHost::awaitPointer);
        connect(cover.get(), &ScreenCover::pressed, this, &LayerPanelHost::dismiss);
        m_covers.push_back(std::move(cover));
    }
}

void LayerPanelHost::awaitPointer()
{
    if (!m_isPlaced)
        m_pointerPatience.start(m_tray.isClicked && LayerShell::hasPointer() ? pointerPatience : 0ms);
}

void LayerPanelHost::openAtPoint()
{
    for (QScreen* screen : QGuiApplication::screens()) {
        if (!m_tray.point.isNull() && screen->geometry().contains(m_tray.point)) {
            openAt(*screen, m_tray.point);
            return;
        }
    }
    // Where trays mostly are: Plasma has its bar at the bottom, compositors without a desktop of their own at the top.
    if (QScreen* screen = QGuiApplication::primaryScreen()) {
        const QRect area = screen->geometry();
        const int end = QGuiApplication::layoutDirection() == Qt::LeftToRight ? area.right() : area.left();
        openAt(*screen, {end, qEnvironmentVariableIsSet("KDE_SESSION_VERSION") ? area.bottom() : area.top()});
        setTrayPoint({});
    }
}

void LayerPanelHost::openAt(QScreen& screen, QPoint point)
{
    if (m_isPlaced)
        return;
    m_isPlaced = true;
    setTrayPoint(point);
    m_pointerPatience.stop();
    m_struts.ask(screen.name(), screen.geometry(), [this, point, where = QPointer(&screen)](QMargins reserved) {
        if (m_isPlaced && !m_surface && where)
            place(*where, point, reserved);
    });
}

void LayerPanelHost::place(QScreen& screen, QPoint point, const QMargins& reserved)
{
    // Hiding has taken the surface from the window, and showing would be too late to place a new one.
    panel().destroy();
    panel().setScreen(&screen);
    panel().setPosition(screen.geometry().topLeft());
    panel().setMask(QRect(QPoint(), panel().size()).marginsRemoved(shadow()));
    panel().create();
    const auto anchored = PanelPlacement::anchored(point, surfaceSize(), screen.geometry(), reserved);
    m_surface = std::make_unique<LayerSurface>(m_shell,
        panel(),
        LayerSurface::Place{.layer = ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY,
            .edges = anchored.edges,
            .margins = anchored.margins - shadow(),
            .keyboard = LayerSurface::Keyboard::exclusive},
        panel().size());
    connect(m_surface.get(), &LayerSurface::configured, &panel(), &QWindow::show);
    connect(m_surface.get(), &LayerSurface::closed, this, &LayerPanelHost::dismiss, Qt::QueuedConnection);
}

void LayerPanelHost::resize()
{
    if (!m_surface)
        return;
    panel().setMask(QRect(QPoint(), panel().size()).marginsRemoved(shadow()));
    m_surface->resize(panel().size());
}

void LayerPanelHost::showCursor()
{
    if (std::exchange(m_hasCursor, true))
        return;
    for (const Cover& cover : m_covers)
        cover->unsetCursor();
}

void LayerPanelHost::dismiss()
{
    if (panel().isVisible())
        panel().close();
    else
        close();
}

void LayerPanelHost::close()
{
    m_pointerPatience.stop();
    m_isPlaced = false;
    m_surface.reset();
    m_covers.clear();
}

} // namespace Tarvik
