// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/X11PanelHost.h"

#include "ui/PanelPlacement.h"
#include "ui/X11Hints.h"

#include <QCursor>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QScreen>

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
}

bool X11PanelHost::isComposited() const
{
    return X11Hints::isComposited();
}

void X11PanelHost::open(QPoint click, const QString& activationToken)
{
    m_click = click;
    m_insistence = attempts;
    place();
    panel().create();
    X11Hints::skipTaskbar(panel());
    X11Hints::setStartupId(panel(), activationToken);
    panel().show();
    panel().requestActivate();
}

void X11PanelHost::place()
{
    // A tray that does not know where it was clicked says 0, 0, or counts from its own corner.
    const QScreen* screen = nullptr;
    for (const QScreen* candidate : QGuiApplication::screens()) {
        if (!m_click.isNull() && PanelPlacement::contains(describe(*candidate), m_click))
            screen = candidate;
    }
    QPoint click = screen != nullptr ? PanelPlacement::toLogical(describe(*screen), m_click) : QCursor::pos();
    if (screen == nullptr)
        screen = QGuiApplication::screenAt(click);
    if (screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return;
    m_position = PanelPlacement::position(click, surfaceSize(), screen->availableGeometry())
        - QPoint(shadow().left(), shadow().top());
    panel().setPosition(m_position);
}

void X11PanelHost::insistOnPosition()
{
    // Some window managers move a new window so that all of it, the shadow too, keeps clear of the panels.
    if (panel().isVisible() && panel().position() != m_position && m_insistence-- > 0)
        panel().setPosition(m_position);
}

} // namespace Tarvik
