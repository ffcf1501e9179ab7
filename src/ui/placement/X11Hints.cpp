// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/X11Hints.h"

#include "base/Releaser.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QMargins>
#include <QString>
#include <QWindow>

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <array>
#include <cstdlib>

namespace Tarvik::X11Hints {

namespace {

template <typename T>
using Reply = Owned<T, std::free>;

xcb_atom_t atom(xcb_connection_t* x11, const QByteArray& name)
{
    const auto cookie = xcb_intern_atom(x11, 0, static_cast<uint16_t>(name.size()), name.constData());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(x11, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace

xcb_connection_t* connection()
{
    const auto* application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return application != nullptr ? application->connection() : nullptr;
}

void skipTaskbar(QWindow& window)
{
    xcb_connection_t* x11 = connection();
    if (x11 == nullptr)
        return;
    const std::array states{atom(x11, "_NET_WM_STATE_SKIP_TASKBAR"), atom(x11, "_NET_WM_STATE_SKIP_PAGER")};
    xcb_change_property(x11,
        XCB_PROP_MODE_REPLACE,
        static_cast<xcb_window_t>(window.winId()),
        atom(x11, "_NET_WM_STATE"),
        XCB_ATOM_ATOM,
        32,
        states.size(),
        states.data());
}

void setShadow(QWindow& window, const QMargins& shadow)
{
    xcb_connection_t* x11 = connection();
    if (x11 == nullptr)
        return;
    const QMarginsF physical = QMarginsF(shadow) * window.devicePixelRatio();
    const std::array extents{static_cast<uint32_t>(qRound(physical.left())),
        static_cast<uint32_t>(qRound(physical.right())),
        static_cast<uint32_t>(qRound(physical.top())),
        static_cast<uint32_t>(qRound(physical.bottom()))};
    xcb_change_property(x11,
        XCB_PROP_MODE_REPLACE,
        static_cast<xcb_window_t>(window.winId()),
        atom(x11, "_GTK_FRAME_EXTENTS"),
        XCB_ATOM_CARDINAL,
        32,
        extents.size(),
        extents.data());
}

void letClicksThrough(QWindow& window, const QMargins& shadow)
{
    xcb_connection_t* x11 = connection();
    if (x11 == nullptr)
        return;
    const QRect inside = QRect(QPoint(), window.size()).marginsRemoved(shadow);
    const double scale = window.devicePixelRatio();
    const QRect physical((QPointF(inside.topLeft()) * scale).toPoint(), (QSizeF(inside.size()) * scale).toSize());
    const xcb_rectangle_t rectangle{.x = static_cast<int16_t>(physical.x()),
        .y = static_cast<int16_t>(physical.y()),
        .width = static_cast<uint16_t>(physical.width()),
        .height = static_cast<uint16_t>(physical.height())};
    xcb_shape_rectangles(x11,
        XCB_SHAPE_SO_SET,
        XCB_SHAPE_SK_INPUT,
        XCB_CLIP_ORDERING_UNSORTED,
        static_cast<xcb_window_t>(window.winId()),
        0,
        0,
        1,
        &rectangle);
}

void setStartupId(QWindow& window, const QString& id)
{
    xcb_connection_t* x11 = connection();
    if (x11 == nullptr || id.isEmpty())
        return;
    const QByteArray text = id.toUtf8();
    xcb_change_property(x11,
        XCB_PROP_MODE_REPLACE,
        static_cast<xcb_window_t>(window.winId()),
        atom(x11, "_NET_STARTUP_ID"),
        atom(x11, "UTF8_STRING"),
        8,
        static_cast<uint32_t>(text.size()),
        text.constData());
}

bool isComposited()
{
    xcb_connection_t* x11 = connection();
    if (x11 == nullptr)
        return true;
    // Every screen of a display has its own; Qt draws on the default one, nearly always the first.
    const auto cookie = xcb_get_selection_owner(x11, atom(x11, "_NET_WM_CM_S0"));
    const Reply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(x11, cookie, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

} // namespace Tarvik::X11Hints
