// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/helper/SystemdHelperService.h"

#include "dbus/BusDaemon.h"
#include "platform/linux/helper/DBusHelperConnection.h"
#include "platform/linux/helper/HelperErrors.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

SystemdHelperService::Places SystemdHelperService::places(const QString& bundleLocation, const QString& label)
{
    return {.installer = bundleLocation + u"/Contents/SharedSupport/helper/install-helper"_s,
        .installedFile = u"/usr/local/share/dbus-1/system-services/%1.service"_s.arg(label)};
}

SystemdHelperService::SystemdHelperService(const QDBusConnection& systemBus, QString label, Places places)
    : m_bus(systemBus)
    , m_label(std::move(label))
    , m_places(std::move(places))
    , m_availability(m_bus, m_label)
{
    m_availability.onChange = [this] { statusChanged(); };
}

std::optional<HelperStatus> SystemdHelperService::status() const
{
    const auto state = m_availability.state();
    if (!state)
        return {};
    switch (*state) {
    case HelperAvailability::State::usable:
        return HelperStatus::enabled;
    case HelperAvailability::State::blocked:
        return HelperStatus::requiresApproval;
    case HelperAvailability::State::absent:
        break;
    }
    return QFileInfo::exists(m_places.installer) ? HelperStatus::notRegistered : HelperStatus::notFound;
}

void SystemdHelperService::refresh()
{
    m_availability.read();
}

void SystemdHelperService::registerService(std::function<void(const QString& error)> done)
{
    m_waiting.push_back(std::move(done));
    if (m_waiting.size() > 1)
        return;
    const bool isThere
        = m_availability.state().value_or(HelperAvailability::State::absent) != HelperAvailability::State::absent;
    const bool isFromPackage = isThere && !QFileInfo::exists(m_places.installedFile);
    if (isFromPackage || !QFileInfo::exists(m_places.installer))
        start();
    else
        install();
}

void SystemdHelperService::install()
{
    m_installation = AdministratorProgram::start(m_places.installer, [this](const QString& error) {
        m_installation.reset();
        finish(error);
    });
    if (!m_installation)
        finish(QCoreApplication::translate("SystemdHelperService",
            "There is no pkexec, which would ask for an administrator’s password. An administrator can run %1 instead.")
                   .arg(m_places.installer));
}

void SystemdHelperService::start()
{
    constexpr uint noFlags = 0;
    m_start = callAsync(m_bus,
        BusDaemon::call(u"StartServiceByName"_s, {m_label, noFlags}),
        [this](const QDBusMessage& answer) {
            m_start.reset();
            finish(answer.type() == QDBusMessage::ReplyMessage ? QString() : HelperErrors::describe(answer));
        },
        {.patience = DBusHelperConnection::patience});
}

void SystemdHelperService::finish(const QString& error)
{
    m_availability.read([this, error] {
        for (const auto& done : std::exchange(m_waiting, {}))
            done(error);
    });
}

void SystemdHelperService::unregisterService(std::function<void(const QString& error)> done)
{
    m_availability.read([done = std::move(done)] { done({}); });
}

std::unique_ptr<HelperConnection> SystemdHelperService::connect()
{
    return m_bus.isConnected() ? std::make_unique<DBusHelperConnection>(m_bus, m_label) : nullptr;
}

} // namespace Tarvik
