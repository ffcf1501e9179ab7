// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/SystemdUserApplications.h"

#include "platform/linux/applications/UnitNames.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto service = u"org.freedesktop.systemd1"_s;
const auto managerPath = u"/org/freedesktop/systemd1"_s;
const auto managerInterface = u"org.freedesktop.systemd1.Manager"_s;
const auto unitInterface = u"org.freedesktop.systemd1.Unit"_s;
const auto propertiesInterface = u"org.freedesktop.DBus.Properties"_s;
const auto unitListSignature = u"a(ssssssouso)"_s;

QDBusMessage managerCall(const QString& method)
{
    auto call = QDBusMessage::createMethodCall(service, managerPath, managerInterface, method);
    call.setAutoStartService(false);
    return call;
}

QHash<QString, QString> applicationUnits(const QDBusArgument& list)
{
    QHash<QString, QString> units;
    list.beginArray();
    while (!list.atEnd()) {
        QString name;
        QString ignored;
        QDBusObjectPath path;
        list.beginStructure();
        list >> name >> ignored >> ignored >> ignored >> ignored >> ignored >> path;
        list.endStructure();
        if (const auto id = UnitNames::desktopId(name))
            units.insert(path.path(), *id);
    }
    list.endArray();
    return units;
}

} // namespace

SystemdUserApplications::SystemdUserApplications(const QDBusConnection& sessionBus)
    : m_bus(sessionBus)
    , m_watcher(service, m_bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    connect(&m_watcher,
        &QDBusServiceWatcher::serviceOwnerChanged,
        this,
        [this](const QString&, const QString&, const QString& newOwner) {
            setUnits({});
            if (!newOwner.isEmpty())
                subscribe();
        });
    // A service name here would make QtDBus ask for its owner and wait; what the signals say is only a hint anyway.
    m_bus.connect({}, managerPath, managerInterface, u"UnitNew"_s, this, SLOT(unitChanged(QString)));
    m_bus.connect({}, managerPath, managerInterface, u"UnitRemoved"_s, this, SLOT(unitChanged(QString)));
    m_bus.connect(
        {}, managerPath, managerInterface, u"JobRemoved"_s, this, SLOT(jobRemoved(uint, QDBusObjectPath, QString)));
    subscribe();
}

SystemdUserApplications::~SystemdUserApplications() = default;

QList<RunningApplication> SystemdUserApplications::list() const
{
    QList<RunningApplication> applications;
    for (const QString& id : m_units)
        applications.append({.id = id, .localizedName = {}});
    return applications;
}

void SystemdUserApplications::subscribe()
{
    m_bus.asyncCall(managerCall(u"Subscribe"_s));
    requestUnits();
}

void SystemdUserApplications::unitChanged(const QString& unit)
{
    if (UnitNames::desktopId(unit))
        requestUnits();
}

void SystemdUserApplications::jobRemoved(uint, const QDBusObjectPath&, const QString& unit)
{
    unitChanged(unit);
}

void SystemdUserApplications::requestUnits()
{
    if (m_requested) {
        m_requestAgain = true;
        return;
    }
    m_requested = true;
    m_requestAgain = false;
    auto call = managerCall(u"ListUnitsByPatterns"_s);
    call << QStringList{u"active"_s} << QStringList{u"app-*.scope"_s, u"app-*.service"_s, u"snap.*.scope"_s};
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        m_requested = false;
        const QDBusMessage reply = watcher->reply();
        if (reply.type() == QDBusMessage::ReplyMessage && reply.signature() == unitListSignature)
            setUnits(applicationUnits(reply.arguments().constFirst().value<QDBusArgument>()));
        if (m_requestAgain)
            requestUnits();
    });
}

void SystemdUserApplications::setUnits(const QHash<QString, QString>& units)
{
    // A service that fails stays loaded, so that only its own properties tell that it has ended.
    for (auto it = m_units.cbegin(); it != m_units.cend(); ++it) {
        if (!units.contains(it.key()))
            watchUnit(it.key(), false);
    }
    for (auto it = units.cbegin(); it != units.cend(); ++it) {
        if (!m_units.contains(it.key()))
            watchUnit(it.key(), true);
    }
    if (std::exchange(m_units, units) != units && onChange)
        onChange();
}

void SystemdUserApplications::watchUnit(const QString& path, bool watch)
{
    const QStringList match{unitInterface};
    const auto name = u"PropertiesChanged"_s;
    const char* slot = SLOT(requestUnits());
    if (watch)
        m_bus.connect({}, path, propertiesInterface, name, match, {}, this, slot);
    else
        m_bus.disconnect({}, path, propertiesInterface, name, match, {}, this, slot);
}

} // namespace Tarvik
