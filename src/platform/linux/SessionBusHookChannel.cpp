// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/SessionBusHookChannel.h"

#include "core/Logging.h"
#include "platform/HookWire.h"

#include <QDBusArgument>
#include <QDBusError>

namespace Tarvik {

namespace {

HookChannel::Payload parse(const QDBusMessage& message)
{
    if (message.signature() != QLatin1String(HookWire::signature))
        return {};
    const auto argument = message.arguments().constFirst().value<QDBusArgument>();
    QMap<QString, QString> payload;
    std::size_t bytes = 0;
    int entries = 0;
    const auto isTooMuch
        = [&] { return entries > SessionBusHookChannel::maximumEntries || bytes > HookWire::maximumBytes; };
    argument.beginMap();
    while (!argument.atEnd() && !isTooMuch()) {
        QString key;
        QString value;
        argument.beginMapEntry();
        argument >> key >> value;
        argument.endMapEntry();
        ++entries;
        bytes += static_cast<std::size_t>(key.toUtf8().size() + value.toUtf8().size());
        payload.insert(key, value);
    }
    // Also where entries are left: a map that is not ended holds on to the whole message for ever.
    argument.endMap();
    return isTooMuch() ? HookChannel::Payload() : payload;
}

} // namespace

SessionBusHookChannel::SessionBusHookChannel(const QDBusConnection& bus)
    : m_events(bus,
        {{},
            QLatin1String(HookWire::objectPath),
            QLatin1String(HookWire::interfaceName),
            QLatin1String(HookWire::signalName),
            {}},
        [this](const QDBusMessage& message) { announced(parse(message)); })
{
    if (!bus.isConnected())
        qCWarning(logHooks, "cannot listen for hook notifications: no session bus");
}

} // namespace Tarvik
