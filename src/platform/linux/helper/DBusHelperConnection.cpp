// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/helper/DBusHelperConnection.h"

#include "dbus/BusDaemon.h"
#include "platform/HelperWire.h"
#include "platform/linux/helper/HelperErrors.h"

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

DBusHelperConnection::DBusHelperConnection(const QDBusConnection& systemBus, const QString& label)
    : m_bus(systemBus)
    , m_label(label)
    , m_names(m_bus, {m_label})
    , m_loss(m_bus, BusDaemon::lossOfConnection(), [this](const QDBusMessage&) { invalidate(); })
{
    m_names.onKnown = [this] {
        m_owner = m_names.owner(m_label);
        for (Request& request : std::exchange(m_waiting, {}))
            send(std::move(request));
    };
    m_names.onOwnerChange = [this](const QString&) { followOwner(); };
}

void DBusHelperConnection::setKeepAwake(
    bool enabled, std::function<void(bool ok, const QString& error)> reply, ErrorHandler failed)
{
    const auto take = [this, enabled, reply = std::move(reply)](const QVariantList& values) {
        const bool ok = values.at(0).toBool();
        if (ok)
            m_isOn = enabled;
        reply(ok, values.at(1).toString());
    };
    begin({.method = QString::fromLatin1(HelperWire::setKeepAwakeMethod),
        .arguments = {enabled},
        .signature = u"bs"_s,
        .reply = take,
        .failed = std::move(failed),
        .needsHelperToStay = enabled});
}

void DBusHelperConnection::heartbeat()
{
    m_calls.send(m_bus, call(QString::fromLatin1(HelperWire::heartbeatMethod)), [](const QDBusMessage&) {});
}

void DBusHelperConnection::version(std::function<void(const QString& version)> reply, ErrorHandler failed)
{
    const auto take = [reply = std::move(reply)](const QVariantList& values) { reply(values.constFirst().toString()); };
    begin({.method = QString::fromLatin1(HelperWire::versionMethod),
        .arguments = {},
        .signature = u"s"_s,
        .reply = take,
        .failed = std::move(failed)});
}

void DBusHelperConnection::begin(Request request)
{
    if (m_names.isKnown())
        send(std::move(request));
    else
        m_waiting.push_back(std::move(request));
}

void DBusHelperConnection::send(Request request)
{
    QDBusMessage message = call(request.method);
    message.setArguments(request.arguments);
    const auto take = [this, request = std::move(request), departures = m_departures](
                          const QDBusMessage& answer) { takeAnswer(request, departures, answer); };
    m_calls.send(m_bus, message, take, {.startsService = true, .patience = patience});
}

void DBusHelperConnection::takeAnswer(Request request, int departures, const QDBusMessage& answer)
{
    const bool isReply = answer.type() == QDBusMessage::ReplyMessage;
    const bool hasOwnForm = isReply && answer.signature() == request.signature;
    // QtDBus may tell of the departure ahead of the answer.
    const bool hasLeft = m_departures != departures && (!isReply || request.needsHelperToStay);
    const bool isEnding = hasOwnForm && answer.arguments().constLast() == QString::fromLatin1(HelperWire::endingError);
    if ((hasLeft || isEnding) && !request.isRepeated) {
        request.isRepeated = true;
        send(std::move(request));
    } else if (!isReply) {
        request.failed(HelperErrors::describe(answer));
    } else if (!hasOwnForm) {
        request.failed(HelperErrors::otherVersion());
    } else if (hasLeft) {
        request.failed(HelperErrors::hasEnded());
    } else {
        request.reply(answer.arguments());
    }
}

QDBusMessage DBusHelperConnection::call(const QString& method) const
{
    return QDBusMessage::createMethodCall(
        m_label, QString::fromLatin1(HelperWire::objectPath), QString::fromLatin1(HelperWire::interfaceName), method);
}

void DBusHelperConnection::followOwner()
{
    const QString former = std::exchange(m_owner, m_names.owner(m_label));
    if (former.isEmpty())
        return;
    ++m_departures;
    endOverride();
}

void DBusHelperConnection::endOverride()
{
    if (const auto receiver = onInterrupted; std::exchange(m_isOn, false) && receiver)
        receiver();
}

void DBusHelperConnection::invalidate()
{
    // The first receiver may destroy this.
    const auto receiver = onInvalidated;
    endOverride();
    if (receiver)
        receiver();
}

} // namespace Tarvik
