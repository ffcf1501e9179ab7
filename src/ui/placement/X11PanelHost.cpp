// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/X11PanelHost.h"

#include "ui/placement/PanelPlacement.h"
#include "ui/placement/WindowActivation.h"
#include "ui/placement/X11Hints.h"

#include <QCursor>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QScreen>

#include <utility>

namespace Tarvik {

namespace {

/// How often a window that the window manager has moved is moved back.
constexpr int attempts = 3;

PanelPlacement::Screen describe(const QScreen& screen)
{
    return {.geometry = screen.geometry(),
        .workArea = screen.availableGeometry(),
        .devicePixelRatio = screen.devicePixelRatio()};
}

} // namespace

X11PanelHost::X11PanelHost(QQuickWindow& panel)
    : PanelHost(panel)
{
    panel.setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    connect(&panel, &QWindow::heightChanged, this, &X11PanelHost::place);
    connect(&panel, &QWindow::widthChanged, this, &X11PanelHost::place);
    connect(&panel, &QWindow::xChanged, this, &X11PanelHost::insistOnPosition, Qt::QueuedConnection);
    connect(&panel, &QWindow::yChanged, this, &X11PanelHost::insistOnPosition, Qt::QueuedConnection);
    connect(&panel, &QQuickWindow::frameSwapped, this, [this] {
        // Some window managers hear of this only once they have put the window into a frame of their own.
        if (!std::exchange(m_isFramed, true))
            X11Hints::letClicksThrough(this->panel(), shadow());
    });
    connect(&panel, &QWindow::visibleChanged, this, [this](bool visible) {
        if (!visible)
            m_rootClicks.reset();
    });
}

bool X11PanelHost::isComposited() const
{
    return X11Hints::isComposited();
}

void X11PanelHost::open(const TrayPoint& tray, const QString& activationToken)
{
    locate(tray);
    m_insistence = attempts;
    m_isFramed = panel().isVisible();
    place();
    panel().create();
    X11Hints::skipTaskbar(panel());
    X11Hints::setShadow(panel(), shadow());
    X11Hints::letClicksThrough(panel(), shadow());
    showAndActivate(panel(), activationToken);
    connect(&m_rootClicks.emplace(), &X11RootClicks::clicked, &panel(), &QWindow::close, Qt::QueuedConnection);
}

void X11PanelHost::locate(const TrayPoint& tray)
{
    if (locateByPointer(tray) || locateByPoint(tray.point))
        return;
    setTrayPoint({});
    m_screen = QGuiApplication::primaryScreen();
    if (m_screen != nullptr)
        m_click = PanelPlacement::usualTray(describe(*m_screen), QGuiApplication::layoutDirection());
}

bool X11PanelHost::locateByPointer(const TrayPoint& tray)
{
    const QPoint pointer = QCursor::pos();
    QScreen* screen = QGuiApplication::screenAt(pointer);
    // Xwayland does not know where the pointer is.
    if (!tray.isClicked || screen == nullptr || qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        return false;
    const PanelPlacement::Screen there = describe(*screen);
    const double scale = there.devicePixelRatio;
    // A tray that does not know where it was clicked says 0, 0.
    if (!tray.point.isNull()
        && (!PanelPlacement::mayBeOnPanel(there, pointer)
            || !PanelPlacement::mayMeanPointer(tray.point, PanelPlacement::toPhysical(there, pointer), scale)))
        return false;
    comeFrom(*screen, pointer);
    if (tray.point.isNull())
        setTrayPoint({});
    return true;
}

bool X11PanelHost::locateByPoint(QPoint point)
{
    for (QScreen* screen : QGuiApplication::screens()) {
        const PanelPlacement::Screen there = describe(*screen);
        if (PanelPlacement::contains(there, point)
            && !PanelPlacement::mayCountFromTray(point, there.devicePixelRatio)) {
            comeFrom(*screen, PanelPlacement::toLogical(there, point));
            return true;
        }
    }
    return false;
}

void X11PanelHost::comeFrom(QScreen& screen, QPoint logical)
{
    m_screen = &screen;
    m_click = logical;
    setTrayPoint(PanelPlacement::toPhysical(describe(screen), logical));
}

void X11PanelHost::place()
{
    if (m_screen == nullptr)
        return;
    m_position = PanelPlacement::position(m_click, surfaceSize(), m_screen->availableGeometry())
        - QPoint(shadow().left(), shadow().top());
    panel().setPosition(m_position);
    if (panel().isVisible())
        X11Hints::letClicksThrough(panel(), shadow());
}

void X11PanelHost::insistOnPosition()
{
    // Some window managers move a new window so that all of it, the shadow too, keeps clear of the bars.
    if (panel().isVisible() && panel().position() != m_position && m_insistence-- > 0)
        panel().setPosition(m_position);
}

} // namespace Tarvik
