// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/DBusCall.h"

#include <QDBusPendingCall>

namespace Tarvik {

void DBusCallDeleter::operator()(QDBusPendingCallWatcher* call) const
{
    call->disconnect();
    call->deleteLater();
}

DBusCall callAsync(
    const QDBusConnection& bus, QDBusMessage message, std::function<void(const QDBusMessage& answer)> done)
{
    message.setAutoStartService(false);
    DBusCall call(new QDBusPendingCallWatcher(bus.asyncCall(message)));
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
