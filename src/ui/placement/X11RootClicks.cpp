// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/X11RootClicks.h"

#include "base/Releaser.h"
#include "ui/placement/X11Hints.h"

#include <QCoreApplication>

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <cstdlib>

namespace Tarvik {

namespace {

/// The wheel is four buttons after these.
constexpr uint32_t lastRealButton = 3;

xcb_window_t rootWindow()
{
    return xcb_setup_roots_iterator(xcb_get_setup(X11Hints::connection())).data->root;
}

/// Mutter and its kin lay such a window below all others, and so over the root.
bool isUnseen(xcb_window_t window)
{
    xcb_connection_t* x11 = X11Hints::connection();
    const Owned<xcb_get_window_attributes_reply_t, std::free> attributes(
        xcb_get_window_attributes_reply(x11, xcb_get_window_attributes(x11, window), nullptr));
    return attributes && attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY;
}

} // namespace

X11RootClicks::X11RootClicks()
{
    xcb_connection_t* x11 = X11Hints::connection();
    if (x11 == nullptr)
        return;
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(x11, &xcb_input_id);
    if (extension == nullptr || extension->present == 0)
        return;
    m_opcode = extension->major_opcode;
    // Qt has told the server which version of the extension it speaks.
    select(XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS);
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11RootClicks::~X11RootClicks()
{
    if (m_opcode != 0)
        select(0);
}

void X11RootClicks::select(uint32_t events) const
{
    struct {
        xcb_input_event_mask_t head;
        uint32_t events;
    } mask{.head = {.deviceid = XCB_INPUT_DEVICE_ALL_MASTER, .mask_len = 1}, .events = events};
    xcb_connection_t* x11 = X11Hints::connection();
    xcb_input_xi_select_events(x11, rootWindow(), 1, &mask.head);
    xcb_flush(x11);
}

bool X11RootClicks::isPointerOnRoot() const
{
    xcb_connection_t* x11 = X11Hints::connection();
    const Owned<xcb_query_pointer_reply_t, std::free> pointer(
        xcb_query_pointer_reply(x11, xcb_query_pointer(x11, rootWindow()), nullptr));
    return pointer && pointer->same_screen != 0 && (pointer->child == XCB_WINDOW_NONE || isUnseen(pointer->child));
}

bool X11RootClicks::nativeEventFilter(const QByteArray& type, void* message, qintptr*)
{
    if (type != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_ge_generic_event_t*>(message);
    constexpr uint8_t sentByProgram = 0x80;
    if ((event->response_type & ~sentByProgram) != XCB_GE_GENERIC || event->extension != m_opcode
        || event->event_type != XCB_INPUT_RAW_BUTTON_PRESS)
        return false;
    const auto* press = static_cast<const xcb_input_raw_button_press_event_t*>(message);
    if (press->detail <= lastRealButton && isPointerOnRoot())
        Q_EMIT clicked();
    return false;
}

} // namespace Tarvik
