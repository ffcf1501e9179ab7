// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/power/UPowerDevice.h"

#include "dbus/DBusProperties.h"

#include <algorithm>
#include <cmath>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

constexpr uint batteryType = 2;
constexpr uint upsType = 3;
constexpr uint dischargingState = 2;
/// UPower counts in percent with fraction.
constexpr qint64 unitsPerPercent = 100;

template <typename T>
void take(std::optional<T>& field, const QVariantMap& properties, const QString& name)
{
    if (const auto property = properties.constFind(name); property != properties.constEnd())
        field = DBusProperties::exactly<T>(*property);
}

std::optional<QString> providingType(std::optional<bool> onBattery, const std::vector<UPowerDevice>& devices)
{
    if (std::ranges::any_of(devices, &UPowerDevice::isDischargingUps))
        return u"UPS Power"_s;
    if (!onBattery)
        return {};
    return *onBattery ? u"Battery Power"_s : u"AC Power"_s;
}

} // namespace

void UPowerDevice::apply(const QVariantMap& properties)
{
    take(nativePath, properties, u"NativePath"_s);
    take(type, properties, u"Type"_s);
    take(state, properties, u"State"_s);
    take(powersSystem, properties, u"PowerSupply"_s);
    take(isPresent, properties, u"IsPresent"_s);
    take(percentage, properties, u"Percentage"_s);
    // Negated, so that it holds for NaN too.
    if (percentage && !(*percentage >= 0 && *percentage <= 100))
        percentage.reset();
}

std::optional<PowerSourceDescription> UPowerDevice::describe() const
{
    if (powersSystem != true || isPresent != true)
        return {};
    PowerSourceDescription source;
    if (type == upsType)
        source.type = u"UPS"_s;
    else if (type == batteryType)
        source.type = u"InternalBattery"_s;
    else
        return {};
    // The percentage, not the energy, is the number that the desktop shows beside its battery.
    if (percentage) {
        source.currentCapacity = std::llround(*percentage * unitsPerPercent);
        source.maxCapacity = 100 * unitsPerPercent;
    }
    return source;
}

bool UPowerDevice::isDischargingUps() const
{
    return type == upsType && powersSystem == true && isPresent == true && state == dischargingState;
}

PowerSourcesSnapshot upowerSnapshot(std::optional<bool> onBattery, std::vector<UPowerDevice> devices)
{
    std::ranges::stable_sort(devices, {}, &UPowerDevice::nativePath);
    PowerSourcesSnapshot snapshot;
    snapshot.providingType = providingType(onBattery, devices);
    for (const UPowerDevice& device : devices) {
        if (auto source = device.describe())
            snapshot.sources.push_back(std::move(*source));
    }
    return snapshot;
}

} // namespace Tarvik
