// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "dbus/RemoteProperties.h"

#include <utility>

namespace Tarvik {

RemoteProperties::RemoteProperties(const QDBusConnection& bus, Place place)
    : m_bus(bus)
    , m_place(std::move(place))
    , m_changes(m_bus,
          DBusProperties::changesOf(m_place.owner, m_place.path, m_place.interface),
          [this](const QDBusMessage& signal) { follow(signal); })
{
    read();
}

void RemoteProperties::read()
{
    m_hasChanged = false;
    m_reading = callAsync(m_bus,
        DBusProperties::getAll(m_place.owner, m_place.path, m_place.interface),
        [this](const QDBusMessage& answer) { take(answer); });
}

void RemoteProperties::take(const QDBusMessage& answer)
{
    m_reading.reset();
    // QtDBus may hand over a signal ahead of an older answer.
    if (m_hasChanged) {
        read();
        return;
    }
    const auto values = DBusProperties::propertiesIn(answer);
    if (!values) {
        if (const auto receiver = onFailure)
            receiver(answer);
        return;
    }
    m_isKnown = true;
    m_values = *values;
    if (onChange)
        onChange(*values);
}

void RemoteProperties::follow(const QDBusMessage& signal)
{
    const auto properties = DBusProperties::propertiesChangedIn(signal);
    if (!properties)
        return;
    m_hasChanged = m_reading != nullptr;
    for (auto it = properties->changed.cbegin(); it != properties->changed.cend(); ++it)
        m_values.insert(it.key(), it.value());
    if (!m_isKnown || !properties->invalidated.isEmpty())
        read();
    else if (onChange)
        onChange(properties->changed);
}

} // namespace Tarvik
