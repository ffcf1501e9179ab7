// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "dbus/PortalRequest.h"

#include "dbus/BusNames.h"

#include <QDBusArgument>
#include <QUuid>

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto requestInterface = u"org.freedesktop.portal.Request"_s;

/// What the portal makes of the caller's unique name and the token that the caller has chosen.
QString requestPath(const QDBusConnection& bus, const QString& token)
{
    QString sender = bus.baseService().mid(1);
    sender.replace(u'.', u'_');
    return u"/org/freedesktop/portal/desktop/request/"_s + sender + u'/' + token;
}

} // namespace

PortalRequest::PortalRequest(QDBusConnection bus,
    QDBusMessage call,
    QVariantList arguments,
    QVariantMap options,
    std::function<void(const QVariantMap* results)> done)
    : m_bus(std::move(bus))
    , m_done(std::move(done))
{
    const QString token = u"tarvik_"_s + QUuid::createUuid().toString(QUuid::Id128);
    m_path = requestPath(m_bus, token);
    // The response may come before the answer to the call.
    m_response = std::make_unique<DBusSignal>(m_bus,
        DBusSignal::Source{{}, m_path, requestInterface, u"Response"_s, {}},
        [this](const QDBusMessage& signal) { receiveResponse(signal); });
    options.insert(u"handle_token"_s, token);
    call.setArguments(std::move(arguments) << options);
    m_call = callAsync(m_bus, call, [this](const QDBusMessage& answer) { receiveAnswer(answer); });
}

PortalRequest::~PortalRequest()
{
    if (m_isFinished)
        return;
    // A dialog may be open.
    auto message = QDBusMessage::createMethodCall(BusNames::desktopPortal, m_path, requestInterface, u"Close"_s);
    message.setAutoStartService(false);
    m_bus.send(message);
}

void PortalRequest::receiveAnswer(const QDBusMessage& answer)
{
    m_call.reset();
    if (answer.type() != QDBusMessage::ReplyMessage)
        finish(nullptr);
}

void PortalRequest::receiveResponse(const QDBusMessage& signal)
{
    constexpr uint success = 0;
    if (signal.signature() != "ua{sv}"_L1)
        return;
    const auto results = qdbus_cast<QVariantMap>(signal.arguments().at(1));
    finish(signal.arguments().at(0).toUInt() == success ? &results : nullptr);
}

void PortalRequest::finish(const QVariantMap* results)
{
    if (std::exchange(m_isFinished, true))
        return;
    const auto done = m_done;
    done(results);
}

} // namespace Tarvik
