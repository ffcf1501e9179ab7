// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "dbus/DBusSignal.h"

#include "core/Logging.h"

#include <utility>

namespace Tarvik {

DBusSignal::DBusSignal(QDBusConnection bus, Source source, std::function<void(const QDBusMessage& signal)> receiver)
    : m_bus(std::move(bus))
    , m_source(std::move(source))
    , m_receiver(std::move(receiver))
{
    Q_ASSERT(m_source.sender.isEmpty() || m_source.sender.startsWith(u':'));
    const auto& [sender, path, interface, name, arguments] = m_source;
    const bool isListening
        = m_bus.connect(sender, path, interface, name, arguments, {}, this, SLOT(receive(QDBusMessage)));
    if (!isListening && m_bus.isConnected())
        qCWarning(
            logSystem, "The signal %ls.%ls cannot be listened to", qUtf16Printable(interface), qUtf16Printable(name));
}

DBusSignal::~DBusSignal()
{
    const auto& [sender, path, interface, name, arguments] = m_source;
    m_bus.disconnect(sender, path, interface, name, arguments, {}, this, SLOT(receive(QDBusMessage)));
}

void DBusSignal::receive(const QDBusMessage& signal)
{
    const auto receiver = m_receiver;
    receiver(signal);
}

} // namespace Tarvik
