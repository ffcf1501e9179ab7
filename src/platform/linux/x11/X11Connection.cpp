// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Connection.h"

#include <QDeadlineTimer>
#include <QSocketNotifier>

#include <poll.h>
#include <xcb/xcbext.h>

#include <cstdlib>
#include <utility>

namespace Tarvik {

using namespace std::chrono_literals;

namespace {

constexpr Seconds firstInterval{1};
constexpr Seconds lastInterval{32};

constexpr auto lastPatience = 1s;

template <typename T>
using Received = Owned<T, std::free>;

} // namespace

std::shared_ptr<X11Connection> X11Connection::open(const QByteArray& display, Clock& clock)
{
    return std::shared_ptr<X11Connection>(new X11Connection(display, clock));
}

X11Connection::X11Connection(const QByteArray& display, Clock& clock)
    : m_display(display)
    , m_clock(clock)
{
    QMetaObject::invokeMethod(
        &m_eventLoop, [this] { begin(); }, Qt::QueuedConnection);
}

X11Connection::~X11Connection()
{
    if (m_connection != nullptr)
        awaitServer();
}

bool X11Connection::isOnThisMachine() const
{
    return m_display.startsWith(':') || m_display.startsWith("unix:") || m_display.startsWith('/');
}

bool X11Connection::connect()
{
    int screenNumber = 0;
    Owned<xcb_connection_t, xcb_disconnect> connection(xcb_connect(m_display.constData(), &screenNumber));
    if (xcb_connection_has_error(connection.get()) != 0)
        return false;
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(connection.get()));
    for (; screenNumber > 0 && screen.rem > 1; --screenNumber)
        xcb_screen_next(&screen);
    if (screen.rem == 0)
        return false;
    m_root = screen.data->root;
    m_connection = std::move(connection);
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(get()), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { process(); });
    return true;
}

void X11Connection::begin()
{
    m_isKnown = true;
    if (!connect()) {
        lost();
        return;
    }
    connected();
    send();
}

Subscription X11Connection::await(unsigned int sequence, ReplyReceiver receiver)
{
    auto owned = std::make_shared<const ReplyReceiver>(std::move(receiver));
    m_requests.push_back({sequence, owned});
    return Subscription(std::move(owned));
}

void X11Connection::send()
{
    if (m_connection != nullptr && !std::exchange(m_isProcessingScheduled, true))
        QMetaObject::invokeMethod(
            &m_eventLoop, [this] { process(); }, Qt::QueuedConnection);
}

void X11Connection::process()
{
    m_isProcessingScheduled = false;
    if (m_connection == nullptr)
        return;
    // Sending may take in what the server has sent, of which the notifier then hears nothing.
    do
        xcb_flush(get());
    while (takeReply() || takeEvent());
    if (xcb_connection_has_error(get()) != 0)
        lose();
    settled();
}

bool X11Connection::takeReply()
{
    // A connection that is broken has a reply to everything.
    if (m_requests.empty() || xcb_connection_has_error(get()) != 0)
        return false;
    void* reply = nullptr;
    xcb_generic_error_t* error = nullptr;
    if (xcb_poll_for_reply(get(), m_requests.front().sequence, &reply, &error) == 0)
        return false;
    const Received<void> ownedReply(reply);
    const Received<xcb_generic_error_t> ownedError(error);
    const auto receiver = m_requests.front().receiver;
    m_requests.pop_front();
    while (takeEvent()) { }
    if (const auto interested = receiver.lock())
        (*interested)(reply);
    return true;
}

bool X11Connection::takeEvent()
{
    // To read what has come is takeReply()'s while a reply is awaited: one that is read here would not be looked for
    // again, and the notifier does not tell of it.
    const Received<xcb_generic_event_t> event(
        m_requests.empty() ? xcb_poll_for_event(get()) : xcb_poll_for_queued_event(get()));
    if (event != nullptr)
        received(*event);
    return event != nullptr;
}

void X11Connection::lose()
{
    // This may be the notifier's own call.
    m_notifier->setEnabled(false);
    m_notifier.release()->deleteLater();
    m_connection.reset();
    m_requests.clear();
    m_interval = firstInterval;
    if (isOnThisMachine())
        lookLater();
    lost();
}

void X11Connection::look()
{
    if (connect()) {
        connected();
        send();
    } else if (m_interval <= lastInterval) {
        lookLater();
    }
}

void X11Connection::lookLater()
{
    m_nextLook = m_clock.after(std::exchange(m_interval, 2 * m_interval), [this] { look(); });
}

void X11Connection::awaitServer()
{
    const unsigned int request = xcb_get_input_focus(get()).sequence;
    xcb_flush(get());
    const QDeadlineTimer patience(lastPatience);
    void* reply = nullptr;
    while (xcb_poll_for_reply(get(), request, &reply, nullptr) == 0 && !patience.hasExpired()) {
        pollfd socket{.fd = xcb_get_file_descriptor(get()), .events = POLLIN, .revents = 0};
        poll(&socket, 1, static_cast<int>(patience.remainingTime()));
    }
    std::free(reply);
}

} // namespace Tarvik
