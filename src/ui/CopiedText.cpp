// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/CopiedText.h"

#include "base/Releaser.h"

#include <QClipboard>
#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdlib>
#include <string_view>

namespace Tarvik {

namespace {

template <typename T>
using Reply = Owned<T, std::free>;

/// Whether an X client saves clipboards; Qt hands over to it when a process ends, by the clipboard manager protocol of
/// freedesktop.org. Wayland knows of no such program.
bool hasClipboardManager()
{
    const auto* application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (application == nullptr)
        return false;
    xcb_connection_t* x11 = application->connection();
    constexpr std::string_view name = "CLIPBOARD_MANAGER";
    const Reply<xcb_intern_atom_reply_t> atom(
        xcb_intern_atom_reply(x11, xcb_intern_atom(x11, 0, name.size(), name.data()), nullptr));
    if (!atom)
        return false;
    const Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(x11, xcb_get_selection_owner(x11, atom->atom), nullptr));
    return reply && reply->owner != XCB_NONE;
}

} // namespace

CopiedText::CopiedText()
{
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &CopiedText::changed);
}

bool CopiedText::needsThisProcess() const
{
    return QGuiApplication::clipboard()->ownsClipboard() && !hasClipboardManager();
}

} // namespace Tarvik
