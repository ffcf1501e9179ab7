// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/power/UPowerPowerSources.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

#include <algorithm>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto service = u"org.freedesktop.UPower"_s;
const auto managerPath = u"/org/freedesktop/UPower"_s;
const auto managerInterface = u"org.freedesktop.UPower"_s;
const auto deviceInterface = u"org.freedesktop.UPower.Device"_s;

std::optional<QString> pathIn(const QDBusMessage& message)
{
    if (message.signature() != "o"_L1)
        return {};
    return message.arguments().constFirst().value<QDBusObjectPath>().path();
}

} // namespace

UPowerPowerSources::UPowerPowerSources(const QDBusConnection& connection)
    : m_connection(connection)
    , m_names(m_connection, {service})
{
    m_names.onKnown = [this] {
        if (m_names.isOwned(service))
            followOwner();
        else
            m_starting = m_names.start(service);
    };
    m_names.onOwnerChange = [this](const QString&) { followOwner(); };
}

std::optional<PowerSourcesSnapshot> UPowerPowerSources::snapshot() const
{
    if (!m_isKnown)
        return {};
    std::vector<UPowerDevice> devices;
    for (const auto& [path, properties] : m_devices) {
        UPowerDevice device;
        device.apply(properties.values());
        devices.push_back(device);
    }
    return upowerSnapshot(m_manager->value<bool>(u"OnBattery"_s), std::move(devices));
}

void UPowerPowerSources::followOwner()
{
    m_isKnown = false;
    m_hasDevices = false;
    m_devices.clear();
    m_listing.reset();
    m_signals.clear();
    m_manager.reset();
    noticeChange();
    const QString owner = m_names.owner(service);
    if (owner.isEmpty())
        return;
    const auto follow = [&](const QString& signal, void (UPowerPowerSources::*take)(const QString&)) {
        m_signals.push_back(std::make_unique<DBusSignal>(m_connection,
            DBusSignal::Source{owner, managerPath, managerInterface, signal, {}},
            [this, take](const QDBusMessage& message) {
                if (const auto path = pathIn(message))
                    (this->*take)(*path);
            }));
    };
    follow(u"DeviceAdded"_s, &UPowerPowerSources::followDevice);
    follow(u"DeviceRemoved"_s, &UPowerPowerSources::forgetDevice);
    m_manager = std::make_unique<RemoteProperties>(
        m_connection, RemoteProperties::Place{owner, managerPath, managerInterface});
    m_manager->onChange = [this](const QVariantMap&) {
        // One that did not tell its devices when it was asked gets another chance when it shows signs of life.
        if (!m_hasDevices && !m_listing)
            listDevices();
        noticeChange();
    };
    listDevices();
}

void UPowerPowerSources::listDevices()
{
    m_listing = callAsync(m_connection,
        QDBusMessage::createMethodCall(m_names.owner(service), managerPath, managerInterface, u"EnumerateDevices"_s),
        [this](const QDBusMessage& answer) { takeDevices(answer); });
}

void UPowerPowerSources::takeDevices(const QDBusMessage& answer)
{
    m_listing.reset();
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "ao"_L1)
        return;
    m_hasDevices = true;
    const auto paths = qdbus_cast<QList<QDBusObjectPath>>(answer.arguments().constFirst());
    for (const QDBusObjectPath& path : paths)
        followDevice(path.path());
    noticeChange();
}

void UPowerPowerSources::followDevice(const QString& path)
{
    RemoteProperties::Place place{m_names.owner(service), path, deviceInterface};
    const auto [device, isNew] = m_devices.try_emplace(path, m_connection, std::move(place));
    if (!isNew)
        return;
    device->second.onChange = [this](const QVariantMap&) { noticeChange(); };
    device->second.onFailure = [this, path](const QDBusMessage&) { forgetDevice(path); };
}

void UPowerPowerSources::forgetDevice(const QString& path)
{
    m_devices.erase(path);
    noticeChange();
}

void UPowerPowerSources::noticeChange()
{
    const auto isRead = [](const auto& device) { return device.second.isKnown(); };
    m_isKnown |= m_hasDevices && m_manager->isKnown() && std::ranges::all_of(m_devices, isRead);
    // Of several changes that come together only their result is told.
    if (!std::exchange(m_isAnnouncing, true))
        QMetaObject::invokeMethod(
            &m_eventLoop, [this] { announce(); }, Qt::QueuedConnection);
}

void UPowerPowerSources::announce()
{
    m_isAnnouncing = false;
    auto current = snapshot();
    if (current == m_announced)
        return;
    m_announced = std::move(current);
    changed();
}

} // namespace Tarvik
