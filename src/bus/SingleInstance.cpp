// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/SingleInstance.h"

#include "dbus/BusDaemon.h"
#include "dbus/contracts/TarvikWire.h"

#include <QDBusError>
#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tarvik {

namespace {

const auto busName = QString::fromLatin1(TarvikWire::busName);

/// At a busy login the bus may stand still for seconds; without it there is nobody to show anything to anyway.
constexpr auto namePatience = 20s;
constexpr auto activationPatience = 2s;
/// The first instance has its name a moment before it listens.
constexpr auto retryPause = 50ms;
/// DBUS_NAME_FLAG_DO_NOT_QUEUE and DBUS_REQUEST_NAME_REPLY_EXISTS of the D-Bus specification.
constexpr quint32 doNotQueue = 4;
constexpr quint32 nameExists = 3;

QVariantMap ownPlatformData()
{
    QVariantMap data;
    const auto pass = [&](const char* variable, const QString& key) {
        if (const QString value = qEnvironmentVariable(variable); !value.isEmpty())
            data[key] = value;
    };
    pass("XDG_ACTIVATION_TOKEN", u"activation-token"_s);
    pass("DESKTOP_STARTUP_ID", u"desktop-startup-id"_s);
    return data;
}

} // namespace

SingleInstance::SingleInstance(QDBusConnection sessionBus)
    : m_bus(std::move(sessionBus))
{
}

void SingleInstance::decide(Start start, std::function<void(Role)> decided)
{
    if (!m_bus.isConnected()) {
        QMetaObject::invokeMethod(
            this, [decided = std::move(decided)] { decided(Role::first); }, Qt::QueuedConnection);
        return;
    }
    m_call = callAsync(m_bus,
        BusDaemon::call(u"RequestName"_s, {busName, doNotQueue}),
        [this, start, decided = std::move(decided)](const QDBusMessage& answer) {
            m_call.reset();
            if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().value(0) != QVariant(nameExists))
                decided(Role::first);
            else if (start == Start::atLogin)
                decided(Role::second);
            else
                handOver(QDeadlineTimer(activationPatience), decided);
        },
        {.patience = namePatience});
}

void SingleInstance::handOver(QDeadlineTimer deadline, const std::function<void(Role)>& decided)
{
    auto call = QDBusMessage::createMethodCall(
        busName, QString::fromLatin1(TarvikWire::objectPath), u"org.freedesktop.Application"_s, u"Activate"_s);
    call << ownPlatformData();
    m_call = callAsync(m_bus,
        call,
        [this, deadline, decided](const QDBusMessage& answer) {
            m_call.reset();
            if (QDBusError(answer).type() == QDBusError::UnknownObject && !deadline.hasExpired())
                QTimer::singleShot(retryPause, this, [this, deadline, decided] { handOver(deadline, decided); });
            else
                decided(Role::second);
        },
        {.patience = activationPatience});
}

} // namespace Tarvik
