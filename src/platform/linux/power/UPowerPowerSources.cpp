// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/power/UPowerPowerSources.h"

#include "platform/linux/dbus/DBusProperties.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto service = u"org.freedesktop.UPower"_s;
const auto managerPath = u"/org/freedesktop/UPower"_s;
const auto managerInterface = u"org.freedesktop.UPower"_s;
const auto deviceInterface = u"org.freedesktop.UPower.Device"_s;

std::optional<QString> pathIn(const QDBusMessage& message)
{
    if (message.signature() != u"o"_s)
        return {};
    return message.arguments().constFirst().value<QDBusObjectPath>().path();
}

} // namespace

UPowerPowerSources::UPowerPowerSources(const QDBusConnection& connection)
    : m_connection(connection)
    , m_watcher(service, connection, QDBusServiceWatcher::WatchForOwnerChange)
{
    connect(&m_watcher,
        &QDBusServiceWatcher::serviceOwnerChanged,
        this,
        [this](const QString&, const QString&, const QString& owner) {
            forget();
            if (!owner.isEmpty())
                readAll();
        });
    DBusProperties::connectPropertiesChanged(m_connection, service, this, SLOT(propertiesChanged(QDBusMessage)));
    m_connection.connect(
        service, managerPath, managerInterface, u"DeviceAdded"_s, this, SLOT(deviceAdded(QDBusMessage)));
    m_connection.connect(
        service, managerPath, managerInterface, u"DeviceRemoved"_s, this, SLOT(deviceRemoved(QDBusMessage)));
    readAll();
}

std::optional<PowerSourcesSnapshot> UPowerPowerSources::snapshot() const
{
    if (!m_isKnown)
        return {};
    const auto devices = m_devices.values();
    return upowerSnapshot(m_onBattery, {devices.begin(), devices.end()});
}

void UPowerPowerSources::propertiesChanged(const QDBusMessage& signal)
{
    const auto properties = DBusProperties::propertiesChangedIn(signal);
    if (!properties || readAgainIfUnknown())
        return;

    if (properties->interfaceName == managerInterface && signal.path() == managerPath) {
        if (properties->invalidated.contains(u"OnBattery"_s))
            readManager();
        if (const auto value = properties->changed.constFind(u"OnBattery"_s); value != properties->changed.constEnd())
            m_onBattery = DBusProperties::exactly<bool>(*value);
    } else if (const auto device = m_devices.find(signal.path());
               device != m_devices.end() && properties->interfaceName == deviceInterface) {
        device->apply(properties->changed);
        if (!properties->invalidated.isEmpty())
            readDevice(signal.path());
    }
    scheduleAnnouncement();
}

void UPowerPowerSources::deviceAdded(const QDBusMessage& signal)
{
    const auto path = pathIn(signal);
    if (path && !readAgainIfUnknown())
        readDevice(*path);
}

void UPowerPowerSources::deviceRemoved(const QDBusMessage& signal)
{
    const auto path = pathIn(signal);
    if (!path || readAgainIfUnknown())
        return;
    m_devices.remove(*path);
    scheduleAnnouncement();
}

void UPowerPowerSources::forget()
{
    m_calls.clear();
    m_hasManager = false;
    m_hasDevices = false;
    m_isKnown = false;
    m_onBattery.reset();
    m_devices.clear();
    scheduleAnnouncement();
}

void UPowerPowerSources::readAll()
{
    readManager();
    ask(QDBusMessage::createMethodCall(service, managerPath, managerInterface, u"EnumerateDevices"_s),
        [this](const QDBusMessage& answer) { takeDevices(answer); });
}

void UPowerPowerSources::readManager()
{
    ask(DBusProperties::getAll(service, managerPath, managerInterface),
        [this](const QDBusMessage& answer) { takeManager(answer); });
}

void UPowerPowerSources::readDevice(const QString& path)
{
    ask(DBusProperties::getAll(service, path, deviceInterface),
        [this, path](const QDBusMessage& answer) { takeDevice(path, answer); });
}

void UPowerPowerSources::takeManager(const QDBusMessage& answer)
{
    const auto properties = DBusProperties::propertiesIn(answer);
    if (!properties)
        return;
    m_hasManager = true;
    m_onBattery = DBusProperties::exactly<bool>(properties->value(u"OnBattery"_s));
}

void UPowerPowerSources::takeDevices(const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != u"ao"_s)
        return;
    m_hasDevices = true;
    const auto paths = qdbus_cast<QList<QDBusObjectPath>>(answer.arguments().constFirst());
    for (const QDBusObjectPath& path : paths)
        readDevice(path.path());
}

void UPowerPowerSources::takeDevice(const QString& path, const QDBusMessage& answer)
{
    if (const auto properties = DBusProperties::propertiesIn(answer)) {
        UPowerDevice device;
        device.apply(*properties);
        m_devices.insert(path, device);
    } else {
        m_devices.remove(path);
    }
}

void UPowerPowerSources::ask(const QDBusMessage& call, std::function<void(const QDBusMessage&)> receiver)
{
    const int id = ++m_lastCall;
    const auto done = [this, id, receiver = std::move(receiver)](const QDBusMessage& answer) {
        receiver(answer);
        m_calls.erase(id);
        m_isKnown |= m_calls.empty() && m_hasManager && m_hasDevices;
        scheduleAnnouncement();
    };
    m_calls.emplace(id, callAsync(m_connection, call, done, ServiceStart::ifNeeded));
}

/// A UPower that did not answer when it was asked gets another chance when it shows signs of life.
bool UPowerPowerSources::readAgainIfUnknown()
{
    if (m_isKnown || !m_calls.empty())
        return false;
    forget();
    readAll();
    return true;
}

void UPowerPowerSources::scheduleAnnouncement()
{
    if (m_isAnnouncing)
        return;
    m_isAnnouncing = true;
    QMetaObject::invokeMethod(this, &UPowerPowerSources::announce, Qt::QueuedConnection);
}

void UPowerPowerSources::announce()
{
    m_isAnnouncing = false;
    auto current = snapshot();
    if (current == m_announced)
        return;
    m_announced = std::move(current);
    if (onChange)
        onChange();
}

} // namespace Tarvik
