// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"
#include "platform/RunningApplications.h"
#include "platform/linux/x11/X11Connection.h"

#include <QByteArray>
#include <QHash>

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>

namespace Tarvik {

class DesktopFiles;

/// Applications with a window on an X display, from _NET_CLIENT_LIST of the Extended Window Manager Hints. An
/// application without a desktop file has no id and the class of its windows as its name. When the display goes away,
/// so do its applications, until it is back.
class X11Applications final : public RunningApplications {
public:
    /// `files` must outlive the object.
    X11Applications(std::shared_ptr<X11Connection> connection, DesktopFiles& files);

    X11Applications(const X11Applications&) = delete;
    X11Applications& operator=(const X11Applications&) = delete;

    QList<RunningApplication> list() const override;

private:
    enum class Atom : std::uint8_t { clientList, gtkApplicationId, utf8String };
    static constexpr std::size_t atomCount = 3;

    struct Window {
        QByteArray instance;
        QByteArray className;
        QByteArray gtkApplicationId;

        bool operator==(const Window&) const = default;
    };

    xcb_connection_t* server() const { return m_connection->get(); }
    /// Asks for everything of a server that knows nothing of us.
    void begin();
    void receive(const xcb_generic_event_t& event);
    void lose();
    void await(unsigned int sequence, X11Connection::ReplyReceiver handle);
    /// Does what has waited for the last reply.
    void proceed();
    void internAtoms();
    void requestClients();
    void setClients(const QList<std::uint32_t>& clients);
    void requestWindow(std::uint32_t window);
    void requestProperty(std::uint32_t window,
        std::uint32_t property,
        std::uint32_t type,
        std::function<void(const QByteArray& value)> handle);
    std::uint32_t atom(Atom name) const { return m_atoms[static_cast<std::size_t>(name)]; }
    RunningApplication application(const Window& window) const;

    std::shared_ptr<X11Connection> m_connection;
    DesktopFiles& m_files;
    std::array<std::uint32_t, atomCount> m_atoms{};
    /// The replies that are on their way, in their order.
    std::deque<Subscription> m_requests;
    QHash<std::uint32_t, Window> m_windows;
    bool m_clientsChanged = false;
    bool m_windowsChanged = false;
    Subscription m_events;
    Subscription m_arrivals;
    Subscription m_losses;
};

} // namespace Tarvik
