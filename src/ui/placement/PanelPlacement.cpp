// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/PanelPlacement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace Tarvik::PanelPlacement {

namespace {

constexpr int thickPanel = 64;

bool isNear(QPointF one, QPointF other, double pixels)
{
    return std::abs(one.x() - other.x()) < pixels && std::abs(one.y() - other.y()) < pixels;
}

/// The edge that the click is beyond or, inside the work area, nearest to.
Qt::Edge edgeOf(QPoint click, const QRect& area)
{
    struct Distance {
        int pixels;
        Qt::Edge edge;
    };
    // Bars are mostly horizontal: in a corner, these two win.
    const std::array distances{
        Distance{click.y() - area.top(), Qt::TopEdge},
        Distance{area.bottom() - click.y(), Qt::BottomEdge},
        Distance{click.x() - area.left(), Qt::LeftEdge},
        Distance{area.right() - click.x(), Qt::RightEdge},
    };
    return std::ranges::min_element(distances, {}, &Distance::pixels)->edge;
}

int clampToSpan(int start, int length, int areaStart, int areaLength)
{
    const int lowest = areaStart + margin;
    return std::max(lowest, std::min(start, areaStart + areaLength - margin - length));
}

} // namespace

bool contains(const Screen& screen, QPoint physical)
{
    const QSize size = (QSizeF(screen.geometry.size()) * screen.devicePixelRatio).toSize();
    return QRect(screen.geometry.topLeft(), size).contains(physical);
}

QPoint toLogical(const Screen& screen, QPoint physical)
{
    const QPoint origin = screen.geometry.topLeft();
    return origin + (QPointF(physical - origin) / screen.devicePixelRatio).toPoint();
}

bool mayBeOnPanel(const Screen& screen, QPoint logical)
{
    const QMargins edges(thickPanel, thickPanel, thickPanel, thickPanel);
    return !screen.workArea.contains(logical) || !screen.geometry.marginsRemoved(edges).contains(logical);
}

QPoint toPhysical(const Screen& screen, QPoint logical)
{
    const QPoint origin = screen.geometry.topLeft();
    return origin + (QPointF(logical - origin) * screen.devicePixelRatio).toPoint();
}

bool mayMeanPointer(QPoint click, QPoint pointer, double devicePixelRatio)
{
    const double closeBy = thickPanel * devicePixelRatio;
    return isNear(click, pointer, closeBy) || isNear(QPointF(click) * devicePixelRatio, pointer, closeBy)
        || mayCountFromTray(click, devicePixelRatio);
}

bool mayCountFromTray(QPoint click, double devicePixelRatio)
{
    return isNear(click, {}, thickPanel * devicePixelRatio);
}

QPoint usualTray(const Screen& screen, Qt::LayoutDirection direction)
{
    const QRect& all = screen.geometry;
    const QRect& free = screen.workArea;
    const int end = direction == Qt::LeftToRight ? all.right() : all.left();
    const std::array bars{
        std::pair{free.top() - all.top(), QPoint(end, all.top())},
        std::pair{all.bottom() - free.bottom(), QPoint(end, all.bottom())},
        std::pair{free.left() - all.left(), all.bottomLeft()},
        std::pair{all.right() - free.right(), all.bottomRight()},
    };
    return std::ranges::max_element(bars, {}, &std::pair<int, QPoint>::first)->second;
}

QPoint position(QPoint click, QSize window, const QRect& workArea)
{
    QPoint corner = click - QPoint(window.width() / 2, window.height() / 2);
    switch (edgeOf(click, workArea)) {
    case Qt::TopEdge:
        corner.setY(workArea.top());
        break;
    case Qt::BottomEdge:
        corner.setY(workArea.bottom());
        break;
    case Qt::LeftEdge:
        corner.setX(workArea.left());
        break;
    case Qt::RightEdge:
        corner.setX(workArea.right());
        break;
    }
    return {clampToSpan(corner.x(), window.width(), workArea.left(), workArea.width()),
        clampToSpan(corner.y(), window.height(), workArea.top(), workArea.height())};
}

Anchored anchored(QPoint click, QSize window, const QRect& screen, const QMargins& reserved)
{
    const Qt::Edge edge = edgeOf(click, screen.marginsRemoved(reserved));
    // Of the other two edges, the nearer one: the window cannot reach the one that is farther away.
    const QPoint fromStart = click - screen.topLeft();
    const QPoint fromEnd = screen.bottomRight() + QPoint(1, 1) - click;
    Anchored place{.edges = edge, .margins = reserved + margin};
    QMargins& margins = place.margins;
    if (edge == Qt::TopEdge || edge == Qt::BottomEdge) {
        place.edges |= fromStart.x() < fromEnd.x() ? Qt::LeftEdge : Qt::RightEdge;
        margins.setLeft(std::max(margins.left(), fromStart.x() - window.width() / 2));
        margins.setRight(std::max(margins.right(), fromEnd.x() - window.width() / 2));
    } else {
        place.edges |= fromStart.y() < fromEnd.y() ? Qt::TopEdge : Qt::BottomEdge;
        margins.setTop(std::max(margins.top(), fromStart.y() - window.height() / 2));
        margins.setBottom(std::max(margins.bottom(), fromEnd.y() - window.height() / 2));
    }
    return place;
}

} // namespace Tarvik::PanelPlacement
