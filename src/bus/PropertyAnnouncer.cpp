// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/PropertyAnnouncer.h"

#include "platform/StatusWire.h"

#include <QDBusMessage>
#include <QMetaProperty>

#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

PropertyAnnouncer::PropertyAnnouncer(const Subject& subject, const QDBusConnection& bus)
    : m_subject(subject)
    , m_bus(bus)
    , m_announced(values())
{
}

void PropertyAnnouncer::announceSoon()
{
    if (std::exchange(m_isScheduled, true))
        return;
    QMetaObject::invokeMethod(this, &PropertyAnnouncer::announce, Qt::QueuedConnection);
}

void PropertyAnnouncer::invalidateSoon(const QString& property)
{
    if (!m_invalidated.contains(property))
        m_invalidated.append(property);
    announceSoon();
}

void PropertyAnnouncer::announce()
{
    m_isScheduled = false;
    const QVariantMap current = values();
    QVariantMap changed;
    for (auto it = current.begin(); it != current.end(); ++it) {
        if (m_announced[it.key()] != it.value())
            changed[it.key()] = it.value();
    }
    m_announced = current;
    const QStringList invalidated = std::exchange(m_invalidated, {});
    if (changed.isEmpty() && invalidated.isEmpty())
        return;
    auto signal = QDBusMessage::createSignal(
        QString::fromLatin1(StatusWire::objectPath), u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s);
    signal << m_subject.interface << changed << invalidated;
    m_bus.send(signal);
}

QVariantMap PropertyAnnouncer::values() const
{
    QVariantMap map;
    const QMetaObject& meta = m_subject.metaObject;
    for (int index = meta.propertyOffset(); index < meta.propertyCount(); ++index) {
        const QMetaProperty property = meta.property(index);
        const QString name = QString::fromLatin1(property.name());
        if (!m_subject.withoutValue.contains(name))
            map[name] = property.read(&m_subject.object);
    }
    return map;
}

} // namespace Tarvik
