// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>

#include <sys/socket.h>
#include <sys/types.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <csignal>
#include <cstddef>
#include <cstring>
#include <memory>

namespace Tarvik {

/// An X server of its own, with the US layout, until the end of the object. All that a process starts, one after the
/// other, are the same display.
class VirtualXServer {
public:
    explicit VirtualXServer(const QStringList& options = {})
    {
        static const QByteArray display = reserveDisplay();
        m_process.setStandardErrorFile(QProcess::nullDevice());
        QStringList arguments{QString::fromLatin1(display),
            QStringLiteral("-displayfd"),
            QStringLiteral("1"),
            QStringLiteral("-screen"),
            QStringLiteral("0"),
            QStringLiteral("320x240x8"),
            QStringLiteral("-nolisten"),
            QStringLiteral("tcp"),
            QStringLiteral("-noreset")};
        arguments += options;
        m_process.start(QStringLiteral("Xvfb"), arguments);
        while (!m_process.canReadLine() && m_process.waitForReadyRead()) { }
        m_display = ':' + m_process.readLine().trimmed();
    }
    ~VirtualXServer() { kill(); }
    VirtualXServer(const VirtualXServer&) = delete;
    VirtualXServer& operator=(const VirtualXServer&) = delete;

    bool isRunning() const { return m_display.size() > 1 && m_process.state() == QProcess::Running; }
    const QByteArray& display() const { return m_display; }
    pid_t processId() const { return static_cast<pid_t>(m_process.processId()); }

    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    /// A free display that no other test takes while its server is down: far above those that a server picks by itself,
    /// and reserved until the end of this process.
    static QByteArray reserveDisplay()
    {
        for (int number = 20'000;; ++number) {
            const QByteArray text = QByteArray::number(number);
            const int reservation = bindAbstract("tarvik-test-display-" + text);
            const int socket = reservation < 0 ? -1 : bindAbstract("/tmp/.X11-unix/X" + text);
            if (socket >= 0) {
                ::close(socket);
                return ':' + text;
            }
        }
    }

    /// A socket under this name, see unix(7); negative when somebody has the name.
    static int bindAbstract(const QByteArray& name)
    {
        sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
        std::memcpy(address.sun_path + 1, name.constData(), static_cast<std::size_t>(name.size()));
        const auto size = offsetof(sockaddr_un, sun_path) + 1 + static_cast<std::size_t>(name.size());
        const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        if (descriptor < 0)
            qFatal("no socket can be made");
        if (::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), static_cast<socklen_t>(size)) == 0)
            return descriptor;
        ::close(descriptor);
        return -1;
    }

    QProcess m_process;
    QByteArray m_display;
};

/// Another program on the X server, which also presses the keys of the only keyboard there is.
class XClient {
public:
    explicit XClient(const VirtualXServer& server)
        : m_connection(xcb_connect(server.display().constData(), nullptr))
        , m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root)
    {
    }
    ~XClient() { xcb_disconnect(m_connection); }
    XClient(const XClient&) = delete;
    XClient& operator=(const XClient&) = delete;

    xcb_connection_t* connection() const { return m_connection; }
    xcb_window_t root() const { return m_root; }

    /// Presses after so many milliseconds of the server's time.
    void pressLater(std::uint8_t keyCode, std::uint32_t delay) const { fake(XCB_KEY_PRESS, keyCode, delay); }
    void press(std::uint8_t keyCode) const { fake(XCB_KEY_PRESS, keyCode); }
    void release(std::uint8_t keyCode) const { fake(XCB_KEY_RELEASE, keyCode); }

    /// Whether the server has given the key to this program.
    bool grab(std::uint8_t keyCode, std::uint16_t modifiers) const
    {
        const auto cookie = xcb_grab_key_checked(
            m_connection, 0, m_root, modifiers, keyCode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        const std::unique_ptr<xcb_generic_error_t, decltype(&std::free)> error(
            xcb_request_check(m_connection, cookie), &std::free);
        return error == nullptr;
    }

    void ungrab(std::uint8_t keyCode, std::uint16_t modifiers) const
    {
        xcb_ungrab_key(m_connection, keyCode, m_root, modifiers);
        settle();
    }

    /// Waits until the server has done what it was asked for.
    void settle() const
    {
        std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

private:
    void fake(std::uint8_t type, std::uint8_t keyCode, std::uint32_t delay = XCB_CURRENT_TIME) const
    {
        xcb_test_fake_input(m_connection, type, keyCode, delay, m_root, 0, 0, 0);
        settle();
    }

    xcb_connection_t* m_connection;
    xcb_window_t m_root;
};

} // namespace Tarvik
