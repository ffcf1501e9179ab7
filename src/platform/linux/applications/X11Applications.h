// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/RunningApplications.h"

#include <QByteArray>
#include <QHash>
#include <QSocketNotifier>

#include <array>
#include <cstdint>
#include <deque>
#include <memory>

struct xcb_connection_t;

namespace Tarvik {

class DesktopFiles;

/// Applications with a window on an X display, from _NET_CLIENT_LIST of the Extended Window Manager Hints. An
/// application without a desktop file has no id and the class of its windows as its name. When the display goes away,
/// so do its applications; there is no second attempt.
class X11Applications final : public RunningApplications {
public:
    /// `display` as in DISPLAY. Nothing when it cannot be reached. `files` must outlive the object.
    static std::unique_ptr<X11Applications> connect(const QByteArray& display, DesktopFiles& files);
    ~X11Applications() override;

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
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const;
    };
    struct Request {
        unsigned int sequence;
        /// Takes the reply, which is null on an error.
        std::function<void(const void* reply)> handle;
    };

    X11Applications(std::unique_ptr<xcb_connection_t, Disconnect> connection, std::uint32_t root, DesktopFiles& files);

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

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    std::uint32_t m_root;
    DesktopFiles& m_files;
    QSocketNotifier m_notifier;
    std::array<std::uint32_t, atomCount> m_atoms{};
    std::deque<Request> m_requests;
    QHash<std::uint32_t, Window> m_windows;
    bool m_clientsChanged = false;
    bool m_windowsChanged = false;
};

} // namespace Tarvik
