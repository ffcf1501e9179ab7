// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/X11Applications.h"

#include "platform/linux/applications/DesktopFiles.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace Tarvik {

namespace {

/// In units of four bytes; far more windows, and longer classes, than there are.
constexpr std::uint32_t maximumPropertyLength = 16 * 1024;

constexpr std::array<std::string_view, 3> atomNames{"_NET_CLIENT_LIST", "_GTK_APPLICATION_ID", "UTF8_STRING"};

} // namespace

X11Applications::X11Applications(std::shared_ptr<X11Connection> connection, DesktopFiles& files)
    : m_connection(std::move(connection))
    , m_files(files)
    , m_events(m_connection->received.subscribe([this](const xcb_generic_event_t& event) { receive(event); }))
    , m_arrivals(m_connection->connected.subscribe([this] { begin(); }))
    , m_losses(m_connection->lost.subscribe([this] { lose(); }))
{
    if (server() != nullptr)
        begin();
}

void X11Applications::begin()
{
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(server(), m_connection->root(), XCB_CW_EVENT_MASK, &events);
    internAtoms();
    m_connection->send();
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

void X11Applications::receive(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7fU) != XCB_PROPERTY_NOTIFY)
        return;
    const auto& notification = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (notification.window != m_connection->root() || notification.atom != atom(Atom::clientList))
        return;
    m_clientsChanged = true;
    proceed();
}

void X11Applications::await(unsigned int sequence, X11Connection::ReplyReceiver handle)
{
    m_requests.push_back(m_connection->await(sequence, [this, handle = std::move(handle)](const void* reply) {
        m_requests.pop_front();
        handle(reply);
        proceed();
    }));
}

void X11Applications::proceed()
{
    // A list that is under way may be the one before the last change, so that the next one waits for it.
    if (!m_requests.empty())
        return;
    if (std::exchange(m_clientsChanged, false))
        requestClients();
    else if (std::exchange(m_windowsChanged, false))
        changed();
}

void X11Applications::lose()
{
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
        await(cookie.sequence, [this, i](const void* reply) {
            if (reply != nullptr)
                m_atoms[i] = static_cast<const xcb_intern_atom_reply_t*>(reply)->atom;
            m_clientsChanged = true;
        });
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
    await(cookie.sequence, [handle = std::move(handle)](const void* reply) {
        // Null when the window has gone in the meantime.
        const auto* answer = static_cast<const xcb_get_property_reply_t*>(reply);
        handle(answer == nullptr ? QByteArray()
                                 : QByteArray(static_cast<const char*>(xcb_get_property_value(answer)),
                                     xcb_get_property_value_length(answer)));
    });
}

} // namespace Tarvik
