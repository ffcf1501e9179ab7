// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

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
    /// `display` as in DISPLAY. Nothing when it cannot be reached. `files` and `clock` must outlive the object.
    static std::unique_ptr<X11Applications> connect(const QByteArray& display, DesktopFiles& files, Clock& clock);

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
    struct Request {
        unsigned int sequence;
        /// Takes the reply, which is null on an error.
        std::function<void(const void* reply)> handle;
    };

    X11Applications(std::unique_ptr<X11Connection> connection, DesktopFiles& files);

    xcb_connection_t* server() const { return m_connection->get(); }
    /// Asks for everything of a server that knows nothing of us.
    void begin();
    void process();
    bool takeReplies();
    bool takeEvents();
    void lose();
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

    std::unique_ptr<X11Connection> m_connection;
    DesktopFiles& m_files;
    std::array<std::uint32_t, atomCount> m_atoms{};
    std::deque<Request> m_requests;
    QHash<std::uint32_t, Window> m_windows;
    bool m_clientsChanged = false;
    bool m_windowsChanged = false;
};

} // namespace Tarvik
