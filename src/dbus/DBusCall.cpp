// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "dbus/DBusCall.h"

#include <QDBusError>
#include <QDBusPendingCall>

namespace Tarvik {

using namespace Qt::StringLiterals;

void dropAnswer(QDBusPendingCallWatcher* call)
{
    call->disconnect();
    call->deleteLater();
}

DBusCall callAsync(const QDBusConnection& bus,
    QDBusMessage message,
    std::function<void(const QDBusMessage& answer)> done,
    const CallOptions& options)
{
    message.setAutoStartService(options.startsService);
    constexpr int usualPatience = -1;
    const int patience = options.patience ? static_cast<int>(options.patience->count()) : usualPatience;
    // Without a connection QtDBus would never answer.
    const QDBusPendingCall pending = bus.isConnected()
        ? bus.asyncCall(message, patience)
        : QDBusPendingCall::fromError(QDBusError(QDBusError::Disconnected, u"There is no connection to the bus."_s));
    DBusCall call(new QDBusPendingCallWatcher(pending));
    QObject::connect(call.get(),
        &QDBusPendingCallWatcher::finished,
        call.get(),
        [done = std::move(done)](const QDBusPendingCallWatcher* finished) {
            // `done` may drop the call and with it this function object.
            const auto receiver = done;
            receiver(finished->reply());
        });
    return call;
}

} // namespace Tarvik
