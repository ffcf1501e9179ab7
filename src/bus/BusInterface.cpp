// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/BusInterface.h"

#include "dbus/WireValue.h"
#include "dbus/contracts/TarvikWire.h"

#include <QDBusMessage>
#include <QMetaProperty>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

BusInterface::BusInterface(const char* name, QDBusConnection bus)
    : m_name(QString::fromLatin1(name))
    , m_bus(std::move(bus))
{
}

void BusInterface::addProperties(QObject& object)
{
    const QMetaObject& meta = *object.metaObject();
    const QMetaMethod announce = staticMetaObject.method(staticMetaObject.indexOfSlot("announceSoon()"));
    for (int index = QObject::staticMetaObject.propertyCount(); index < meta.propertyCount(); ++index) {
        const QMetaProperty property = meta.property(index);
        if (property.hasNotifySignal())
            connect(&object, property.notifySignal(), this, announce);
        if (WireValue::signatureOf(property.metaType()).isEmpty())
            continue;
        Property offered{QString::fromLatin1(property.name()), property.metaType(), [&object, property] {
                             return property.read(&object);
                         }};
        if (property.isWritable()) {
            offered.write = [&object, property](const QVariant& value) {
                property.write(&object, value);
                return BusAnswer();
            };
        }
        add(std::move(offered));
    }
}

void BusInterface::announceWithoutValue(const QString& property)
{
    std::ranges::find(m_properties, property, &Property::name)->isAnnouncedWithValue = false;
}

void BusInterface::start()
{
    m_announced = announcedValues();
}

void BusInterface::announceSoon()
{
    if (std::exchange(m_isScheduled, true))
        return;
    QMetaObject::invokeMethod(this, &BusInterface::announce, Qt::QueuedConnection);
}

void BusInterface::invalidateSoon(const QString& property)
{
    if (!m_invalidated.contains(property))
        m_invalidated.append(property);
    announceSoon();
}

BusAnswer BusInterface::get(const QString& property) const
{
    if (const Property* known = find(property))
        return {.values = {known->read()}};
    return BusAnswer::refusal(
        QDBusError::UnknownProperty, u"There is no property \"%1\" in %2."_s.arg(property, m_name));
}

BusAnswer BusInterface::set(const QString& property, const QVariant& value)
{
    const Property* known = find(property);
    if (known == nullptr)
        return get(property);
    if (!known->write)
        return BusAnswer::refusal(QDBusError::PropertyReadOnly, u"%1 cannot be set."_s.arg(property));
    const QVariant typed = WireValue::as(known->type, value);
    if (!typed.isValid()) {
        return BusAnswer::invalidArguments(
            u"%1 takes a value of the type \"%2\"."_s.arg(property, WireValue::signatureOf(known->type)));
    }
    return known->write(typed);
}

QVariantMap BusInterface::getAll() const
{
    QVariantMap values;
    for (const Property& property : m_properties)
        values[property.name] = property.read();
    return values;
}

bool BusInterface::hasMethod(const QString& method) const
{
    return std::ranges::find(m_methods, method, &Method::name) != m_methods.end();
}

BusAnswer BusInterface::call(const QString& method, const QVariantList& arguments)
{
    const auto known = std::ranges::find(m_methods, method, &Method::name);
    if (known == m_methods.end()) {
        QStringList names;
        std::ranges::transform(m_methods, std::back_inserter(names), &Method::name);
        return BusAnswer::refusal(QDBusError::UnknownMethod,
            u"There is no method \"%1\" in %2, only: %3."_s.arg(method, m_name, names.join(u", "_s)));
    }
    QVariantList typed;
    QString signature;
    for (qsizetype index = 0; index < known->types.size(); ++index) {
        typed.append(WireValue::as(known->types[index], arguments.value(index)));
        signature += WireValue::signatureOf(known->types[index]);
    }
    if (arguments.size() != typed.size() || !std::ranges::all_of(typed, &QVariant::isValid))
        return BusAnswer::invalidArguments(u"%1 takes arguments of the types \"%2\"."_s.arg(method, signature));
    return known->call(typed);
}

void BusInterface::add(Property property)
{
    const auto known = std::ranges::find(m_properties, property.name, &Property::name);
    if (known != m_properties.end())
        *known = std::move(property);
    else
        m_properties.push_back(std::move(property));
}

void BusInterface::add(Method method)
{
    m_methods.push_back(std::move(method));
}

const BusInterface::Property* BusInterface::find(const QString& property) const
{
    const auto known = std::ranges::find(m_properties, property, &Property::name);
    return known != m_properties.end() ? &*known : nullptr;
}

void BusInterface::announce()
{
    m_isScheduled = false;
    const QVariantMap current = announcedValues();
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
        QString::fromLatin1(TarvikWire::objectPath), u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s);
    signal << m_name << changed << invalidated;
    m_bus.send(signal);
}

QVariantMap BusInterface::announcedValues() const
{
    QVariantMap values;
    for (const Property& property : m_properties) {
        if (property.isAnnouncedWithValue)
            values[property.name] = property.read();
    }
    return values;
}

} // namespace Tarvik
