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

void X11PanelHost::open(QPoint click, const QString& activationToken)
{
    locate(click);
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

void X11PanelHost::locate(QPoint click)
{
    m_click = QCursor::pos();
    m_screen = QGuiApplication::screenAt(m_click);
    if (m_screen == nullptr)
        m_screen = QGuiApplication::primaryScreen();
    // A tray that does not know where it was clicked says 0, 0. One that counts from its own corner, as MATE's does, is
    // found out by the pointer, which then is on a bar. Xwayland does not know where the pointer is.
    const bool isPointerKnown = m_screen != nullptr && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (click.isNull() || (isPointerKnown && PanelPlacement::mayBeOnPanel(describe(*m_screen), m_click)))
        return;
    for (QScreen* candidate : QGuiApplication::screens()) {
        if (PanelPlacement::contains(describe(*candidate), click)) {
            m_screen = candidate;
            m_click = PanelPlacement::toLogical(describe(*candidate), click);
            return;
        }
    }
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
