// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/thermal/PowerProfilesHeat.h"

#include <algorithm>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

/// Since 0.20, and before; the newer daemons have both. Path and interface are called like the name.
const QStringList services{u"org.freedesktop.UPower.PowerProfiles"_s, u"net.hadess.PowerProfiles"_s};

RemoteProperties::Place placeOf(const QString& service, const QString& owner)
{
    return {owner, u'/' + QString(service).replace(u'.', u'/'), service};
}

} // namespace

PowerProfilesHeat::PowerProfilesHeat(const QDBusConnection& systemBus)
    : m_bus(systemBus)
    , m_names(m_bus, services)
{
    m_names.onKnown = [this] { followOwner(); };
    m_names.onOwnerChange = [this](const QString&) { followOwner(); };
}

void PowerProfilesHeat::followOwner()
{
    m_properties.reset();
    const auto service = std::ranges::find_if(services, [this](const QString& name) { return m_names.isOwned(name); });
    if (service != services.end()) {
        m_properties = std::make_unique<RemoteProperties>(m_bus, placeOf(*service, m_names.owner(*service)));
        m_properties->onChange = [this](const QVariantMap&) { update(); };
    }
    update();
}

void PowerProfilesHeat::update()
{
    const bool isTooHot = m_properties != nullptr
        && m_properties->value<QString>(u"PerformanceDegraded"_s) == u"high-operating-temperature"_s;
    if (std::exchange(m_isTooHot, isTooHot) != isTooHot)
        changed();
}

} // namespace Tarvik
