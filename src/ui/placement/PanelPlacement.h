// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QPoint>
#include <QRect>
#include <QSize>

/// Where the panel goes. Coordinates are those of the desktop.
namespace Tarvik::PanelPlacement {

/// One screen as Qt sees it: its origin is in physical pixels, its size in logical ones.
struct Screen {
    QRect geometry;
    /// Without the space of bars.
    QRect workArea;
    double devicePixelRatio = 1;
};

/// Space between the panel and the edges of the work area.
inline constexpr int margin = 6;

/// Whether a point in physical pixels lies on the screen.
bool contains(const Screen& screen, QPoint physical);
/// A point in physical pixels in the screen's logical ones.
QPoint toLogical(const Screen& screen, QPoint physical);

/// Whether a desktop's bar may be at a point in logical pixels. The work area does not tell of bars that hide, nor,
/// as Qt knows it, of any when there are several screens.
bool mayBeOnPanel(const Screen& screen, QPoint logical);

/// The inverse of toLogical().
QPoint toPhysical(const Screen& screen, QPoint logical);

/// Whether a tray that tells of a click at `click` may mean the pointer: it says where that is, or in the larger pixels
/// of its toolkit, or counts from its own corner, which cannot be told from that of the desktop. In physical pixels.
bool mayMeanPointer(QPoint click, QPoint pointer, double devicePixelRatio);
/// Whether `click` may be counted from the tray's own corner. In physical pixels.
bool mayCountFromTray(QPoint click, double devicePixelRatio);

/// Where trays mostly are, in logical pixels: at the end of the largest bar of the screen or, where there is none, of
/// its upper edge.
QPoint usualTray(const Screen& screen, Qt::LayoutDirection direction);

/// The top left corner of a window of this size that opens from a click at `click`: at the edge of the work area from
/// where the click came, centred on it as far as the work area allows. A window that is too large starts at its top
/// left.
QPoint position(QPoint click, QSize window, const QRect& workArea);

/// A place that is told by edges to keep to, for a screen whose work area is not known.
struct Anchored {
    Qt::Edges edges;
    /// To these edges.
    QMargins margins;
};

/// As position(). The margins count from the edges of the space that whoever places the window keeps clear of bars,
/// and `reserved` is what bars take that it does not know of.
Anchored anchored(QPoint click, QSize window, const QRect& screen, const QMargins& reserved = {});

} // namespace Tarvik::PanelPlacement
