// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/inhibitors/DBusInhibitor.h"

#include "dbus/DBusErrors.h"

#include <cerrno>
#include <utility>

namespace Tarvik {

namespace {

/// What a call to an object or a method that is not there ends with.
constexpr int notThere = EBADR;

/// The message that gives back what `answer` of `owner` granted, sent to the very process that granted it: a cookie
/// means nothing, or another program's inhibitor, to a successor. Invalid when `answer` granted no cookie.
QDBusMessage cookieRelease(const InhibitorRequest& request, const QString& owner, const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != QLatin1String("u"))
        return {};
    QDBusMessage message
        = QDBusMessage::createMethodCall(owner, request.path, request.interface, request.releaseMethod);
    message.setArguments(answer.arguments());
    message.setAutoStartService(false);
    return message;
}

} // namespace

DBusInhibitor::DBusInhibitor(
    QDBusConnection bus, InhibitorRequest request, Clock& clock, std::function<void()> onChange)
    : m_bus(std::move(bus))
    , m_request(std::move(request))
    , m_clock(clock)
    , m_onChange(std::move(onChange))
{
}

DBusInhibitor::~DBusInhibitor()
{
    abandonCall();
    giveBack();
}

void DBusInhibitor::setOwner(const QString& owner)
{
    abandonCall();
    m_owner = owner;
    m_error = 0;
    m_retriesLeft = retries;
    m_cookieRelease = {};
    m_state = owner.isEmpty() ? State::waiting : State::pending;
    // A descriptor stays open meanwhile: logind finds the inhibitors of its predecessor again, and the new one, once
    // granted, takes the old one's place.
    if (!owner.isEmpty())
        take();
    m_onChange();
}

void DBusInhibitor::take()
{
    QDBusMessage message
        = QDBusMessage::createMethodCall(m_owner, m_request.path, m_request.interface, QStringLiteral("Inhibit"));
    message.setArguments(m_request.arguments);
    m_call = callAsync(m_bus, message, [this](const QDBusMessage& answer) { receive(answer); });
}

void DBusInhibitor::receive(const QDBusMessage& answer)
{
    m_call.reset();
    const auto failure = accept(answer);
    if ((failure == notThere || failure == EINPROGRESS) && m_retriesLeft > 0) {
        --m_retriesLeft;
        m_retry = m_clock.after(retryTime, [this] { take(); });
        return;
    }
    m_error = failure.value_or(0);
    m_state = failure ? State::refused : State::effective;
    // Whoever is told may destroy this.
    const auto changed = m_onChange;
    changed();
}

std::optional<int> DBusInhibitor::accept(const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage)
        return DBusErrors::toErrno(answer.errorName());
    if (!m_request.releaseMethod.isEmpty()) {
        m_cookieRelease = cookieRelease(m_request, m_owner, answer);
        return m_cookieRelease.type() == QDBusMessage::InvalidMessage ? std::optional(EBADMSG) : std::nullopt;
    }
    if (answer.signature() != QLatin1String("h"))
        return EBADMSG;
    const auto descriptor = answer.arguments().constFirst().value<QDBusUnixFileDescriptor>();
    if (!descriptor.isValid())
        return EBADMSG;
    m_descriptor = descriptor;
    return std::nullopt;
}

void DBusInhibitor::abandonCall()
{
    m_retry.reset();
    if (!m_call)
        return;
    // An unread descriptor is closed with the answer; a cookie would stay in force for as long as this process lives.
    if (m_request.releaseMethod.isEmpty()) {
        m_call.reset();
        return;
    }
    QDBusPendingCallWatcher* call = m_call.release();
    call->disconnect();
    const auto giveBackLate = [bus = m_bus, request = m_request, owner = m_owner](QDBusPendingCallWatcher* finished) {
        const QDBusMessage release = cookieRelease(request, owner, finished->reply());
        if (release.type() != QDBusMessage::InvalidMessage)
            bus.send(release);
        finished->deleteLater();
    };
    QObject::connect(call, &QDBusPendingCallWatcher::finished, call, giveBackLate);
}

void DBusInhibitor::giveBack()
{
    if (m_cookieRelease.type() != QDBusMessage::InvalidMessage)
        m_bus.send(m_cookieRelease);
}

} // namespace Tarvik
