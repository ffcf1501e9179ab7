// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/PanelPlacement.h"

#include <algorithm>
#include <array>

namespace Tarvik::PanelPlacement {

namespace {

enum class Edge { top, bottom, left, right };

/// The edge that the click is beyond or, inside the work area, nearest to.
Edge edgeOf(QPoint click, const QRect& area)
{
    struct Distance {
        int pixels;
        Edge edge;
    };
    // Panels are mostly horizontal: in a corner, these two win.
    const std::array distances{
        Distance{click.y() - area.top(), Edge::top},
        Distance{area.bottom() - click.y(), Edge::bottom},
        Distance{click.x() - area.left(), Edge::left},
        Distance{area.right() - click.x(), Edge::right},
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

QPoint position(QPoint click, QSize window, const QRect& workArea)
{
    QPoint corner = click - QPoint(window.width() / 2, window.height() / 2);
    switch (edgeOf(click, workArea)) {
    case Edge::top:
        corner.setY(workArea.top());
        break;
    case Edge::bottom:
        corner.setY(workArea.bottom());
        break;
    case Edge::left:
        corner.setX(workArea.left());
        break;
    case Edge::right:
        corner.setX(workArea.right());
        break;
    }
    return {clampToSpan(corner.x(), window.width(), workArea.left(), workArea.width()),
        clampToSpan(corner.y(), window.height(), workArea.top(), workArea.height())};
}

} // namespace Tarvik::PanelPlacement
