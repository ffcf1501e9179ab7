// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/SingleInstance.h"

#include "platform/StatusWire.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

const auto busName = QString::fromLatin1(StatusWire::busName);

/// At a busy login the bus may stand still for seconds; without it there is nobody to show anything to anyway.
constexpr int nameTimeoutMilliseconds = 20'000;
constexpr int activationTimeoutMilliseconds = 2000;
/// The first instance has its name a moment before it listens.
constexpr int retryMilliseconds = 50;
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

void SingleInstance::decide(std::function<void(Role)> decided)
{
    if (!m_bus.isConnected()) {
        QMetaObject::invokeMethod(
            this, [decided = std::move(decided)] { decided(Role::first); }, Qt::QueuedConnection);
        return;
    }
    auto request = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"RequestName"_s);
    request << busName << doNotQueue;
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(request, nameTimeoutMilliseconds), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, decided = std::move(decided)] {
        watcher->deleteLater();
        const QDBusPendingReply<quint32> reply = *watcher;
        if (reply.isValid() && reply.value() == nameExists)
            handOver(QDeadlineTimer(activationTimeoutMilliseconds), decided);
        else
            decided(Role::first);
    });
}

void SingleInstance::handOver(QDeadlineTimer deadline, const std::function<void(Role)>& decided)
{
    auto call = QDBusMessage::createMethodCall(
        busName, QString::fromLatin1(StatusWire::objectPath), u"org.freedesktop.Application"_s, u"Activate"_s);
    call << ownPlatformData();
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, activationTimeoutMilliseconds), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, deadline, decided] {
        watcher->deleteLater();
        if (watcher->error().type() == QDBusError::UnknownObject && !deadline.hasExpired())
            QTimer::singleShot(retryMilliseconds, this, [this, deadline, decided] { handOver(deadline, decided); });
        else
            decided(Role::second);
    });
}

} // namespace Tarvik
