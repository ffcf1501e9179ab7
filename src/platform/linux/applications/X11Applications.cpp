// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/X11Applications.h"

#include "platform/linux/applications/DesktopFiles.h"

#include <xcb/xcb.h>
#include <xcb/xcbext.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <utility>

namespace Tarvik {

namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

/// In units of four bytes; far more windows, and longer classes, than there are.
constexpr std::uint32_t maximumPropertyLength = 16 * 1024;

constexpr std::array<std::string_view, 3> atomNames{"_NET_CLIENT_LIST", "_GTK_APPLICATION_ID", "UTF8_STRING"};

} // namespace

std::unique_ptr<X11Applications> X11Applications::connect(const QByteArray& display, DesktopFiles& files, Clock& clock)
{
    auto connection = X11Connection::open(display, clock);
    return connection ? std::unique_ptr<X11Applications>(new X11Applications(std::move(connection), files)) : nullptr;
}

X11Applications::X11Applications(std::unique_ptr<X11Connection> connection, DesktopFiles& files)
    : m_connection(std::move(connection))
    , m_files(files)
{
    m_connection->onReadable = [this] { process(); };
    m_connection->onBack = [this] { begin(); };
    begin();
}

void X11Applications::begin()
{
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(server(), m_connection->root(), XCB_CW_EVENT_MASK, &events);
    internAtoms();
    xcb_flush(server());
}

QList<RunningApplication> X11Applications::list() const
{
    QList<RunningApplication> applications;
    for (const Window& window : m_windows) {
        const RunningApplication running = application(window);
        if ((!running.id.isEmpty() || !running.localizedName.isEmpty()) && !applications.contains(running))
            applications.append(running);
    }
    return applications;
}

RunningApplication X11Applications::application(const Window& window) const
{
    const QString instance = QString::fromUtf8(window.instance);
    const QString className = QString::fromUtf8(window.className);
    const QString gtkApplicationId = QString::fromUtf8(window.gtkApplicationId);
    if (m_files.name(gtkApplicationId))
        return {.id = gtkApplicationId, .localizedName = {}};
    if (const auto id = m_files.idForWindow({instance, className}))
        return {.id = *id, .localizedName = {}};
    return {.id = {}, .localizedName = className};
}

void X11Applications::process()
{
    // Sending may have received more, of which the descriptor tells nothing.
    while (takeReplies() || takeEvents())
        xcb_flush(server());
    if (xcb_connection_has_error(server()) != 0) {
        lose();
        return;
    }
    if (m_requests.empty() && std::exchange(m_windowsChanged, false))
        changed();
}

bool X11Applications::takeReplies()
{
    bool taken = false;
    while (!m_requests.empty()) {
        void* reply = nullptr;
        xcb_generic_error_t* error = nullptr;
        if (xcb_poll_for_reply(server(), m_requests.front().sequence, &reply, &error) == 0)
            break;
        const std::unique_ptr<void, Free> ownedReply(reply);
        const std::unique_ptr<xcb_generic_error_t, Free> ownedError(error);
        const auto request = std::move(m_requests.front());
        m_requests.pop_front();
        request.handle(reply);
        taken = true;
    }
    return taken;
}

bool X11Applications::takeEvents()
{
    while (const std::unique_ptr<xcb_generic_event_t, Free> event{xcb_poll_for_event(server())}) {
        if ((event->response_type & 0x7fU) != XCB_PROPERTY_NOTIFY)
            continue;
        xcb_property_notify_event_t notification{};
        std::memcpy(&notification, event.get(), sizeof notification);
        if (notification.window == m_connection->root() && notification.atom == atom(Atom::clientList))
            m_clientsChanged = true;
    }
    // A list that is under way may be the one before this change, so that the next one waits for it.
    if (!m_requests.empty() || !std::exchange(m_clientsChanged, false))
        return false;
    requestClients();
    return true;
}

void X11Applications::lose()
{
    m_connection->lose();
    m_requests.clear();
    m_clientsChanged = false;
    m_windowsChanged = false;
    if (!m_windows.isEmpty()) {
        m_windows.clear();
        changed();
    }
}

void X11Applications::internAtoms()
{
    for (std::size_t i = 0; i < atomCount; ++i) {
        const auto cookie
            = xcb_intern_atom(server(), 0, static_cast<std::uint16_t>(atomNames[i].size()), atomNames[i].data());
        m_requests.push_back({cookie.sequence, [this, i](const void* reply) {
                                  if (reply != nullptr)
                                      m_atoms[i] = static_cast<const xcb_intern_atom_reply_t*>(reply)->atom;
                                  m_clientsChanged = true;
                              }});
    }
}

void X11Applications::requestClients()
{
    requestProperty(m_connection->root(), atom(Atom::clientList), XCB_ATOM_WINDOW, [this](const QByteArray& value) {
        QList<std::uint32_t> clients(value.size() / qsizetype{sizeof(std::uint32_t)});
        std::copy_n(value.constData(),
            static_cast<std::size_t>(clients.size()) * sizeof(std::uint32_t),
            reinterpret_cast<char*>(clients.data()));
        setClients(clients);
    });
}

void X11Applications::setClients(const QList<std::uint32_t>& clients)
{
    const auto removed = m_windows.removeIf([&](const auto& entry) { return !clients.contains(entry.key()); });
    m_windowsChanged = m_windowsChanged || removed > 0;
    for (const std::uint32_t client : clients) {
        if (!m_windows.contains(client))
            requestWindow(client);
    }
}

void X11Applications::requestWindow(std::uint32_t window)
{
    m_windows.insert(window, {});
    m_windowsChanged = true;
    requestProperty(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, [this, window](const QByteArray& value) {
        const QByteArrayList names = value.split('\0');
        m_windows[window].instance = names.value(0);
        m_windows[window].className = names.value(1);
    });
    requestProperty(
        window, atom(Atom::gtkApplicationId), atom(Atom::utf8String), [this, window](const QByteArray& value) {
            m_windows[window].gtkApplicationId = value;
        });
}

void X11Applications::requestProperty(std::uint32_t window,
    std::uint32_t property,
    std::uint32_t type,
    std::function<void(const QByteArray& value)> handle)
{
    const auto cookie = xcb_get_property(server(), 0, window, property, type, 0, maximumPropertyLength);
    m_requests.push_back({cookie.sequence, [handle = std::move(handle)](const void* reply) {
                              // Null when the window has gone in the meantime.
                              const auto* answer = static_cast<const xcb_get_property_reply_t*>(reply);
                              handle(answer == nullptr
                                      ? QByteArray()
                                      : QByteArray(static_cast<const char*>(xcb_get_property_value(answer)),
                                          xcb_get_property_value_length(answer)));
                          }});
}

} // namespace Tarvik
