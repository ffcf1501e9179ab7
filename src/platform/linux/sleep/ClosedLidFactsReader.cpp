// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/ClosedLidFactsReader.h"

#include "dbus/BusNames.h"
#include "dbus/DBusProperties.h"
#include "platform/linux/inhibitors/LidDaemons.h"
#include "platform/linux/inhibitors/SystemdVersion.h"
#include "platform/linux/sleep/LidAction.h"

#include <unistd.h>

#include <algorithm>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

bool isTrue(const QVariantMap& properties, const QString& name)
{
    return DBusProperties::exactly<bool>(properties.value(name)) == true;
}

} // namespace

ClosedLidFactsReader::ClosedLidFactsReader(QDBusConnection systemBus, QDBusConnection sessionBus)
    : m_systemBus(std::move(systemBus))
    , m_sessionBus(std::move(sessionBus))
{
}

void ClosedLidFactsReader::read(Receiver done)
{
    m_done = std::move(done);
    m_calls.emplace();
    m_names.emplace(m_sessionBus, LidDaemons::names() + QStringList{BusNames::gnomePowerManager});
    m_names->onKnown = [this] { ask(); };
    if (m_names->isKnown())
        ask();
}

void ClosedLidFactsReader::ask()
{
    m_facts = {.ownProcess = static_cast<std::uint32_t>(getpid()), .ownUser = getuid()};
    m_facts.isGnome = m_names->isOwned(BusNames::gnomePowerManager);
    m_facts.hasLidDaemon
        = std::ranges::any_of(LidDaemons::names(), [this](const QString& name) { return m_names->isOwned(name); });
    m_version = SystemdVersion::ask(m_systemBus, [this](int version) {
        m_facts.systemdVersion = version;
        m_calls->send(m_systemBus, LogindInhibitors::list(), [this](const QDBusMessage& answer) {
            m_inhibitors = LogindInhibitors::listIn(answer);
            const auto manager = DBusProperties::getAll(
                BusNames::logind, u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s);
            m_calls->send(m_systemBus, manager, [this](const QDBusMessage& properties) {
                if (const auto map = DBusProperties::propertiesIn(properties); map && m_inhibitors)
                    askDaemon(*map);
                else
                    finish({});
            });
        });
    });
}

void ClosedLidFactsReader::askDaemon(const QVariantMap& manager)
{
    m_facts.inhibitors = *m_inhibitors;
    m_facts.isLidClosed = isTrue(manager, u"LidClosed"_s);
    m_facts.isDocked = isTrue(manager, u"Docked"_s);
    const bool isOnMains = isTrue(manager, u"OnExternalPower"_s);
    LidAction::ask(*m_calls, m_sessionBus, *m_names, isOnMains, [this](std::optional<bool> suspends) {
        m_facts.daemonSuspends = suspends;
        finish(m_facts);
    });
}

void ClosedLidFactsReader::finish(const std::optional<ClosedLidFacts>& facts)
{
    const auto done = std::exchange(m_done, {});
    done(facts);
}

} // namespace Tarvik
